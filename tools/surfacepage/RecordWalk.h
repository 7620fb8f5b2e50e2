// The records of a metafile ([MS-EMF] 2.3), one after the other, and what breaks their chain.
#pragma once

#include <functional>
#include <string>

#include "sys/recordReader.h"

namespace pagetool {

// Visits every record up to and with EMR_EOF. Gives what is wrong with the chain; empty: nothing.
std::string walkRecords(metafile::Page page, const std::function<void(const metafile::Record&)>& visit);

// As in [MS-EMF] without its prefix, or "record N".
std::string recordName(DWORD type);

} // namespace pagetool
