// The files that a command works on, where they are not named one by one.
#pragma once

#include <string>
#include <vector>

namespace pagetool {

// The name of standard input, and of standard output.
inline constexpr const char* StandardStream = "-";

// In place of each folder the pages in it and in the folders below, by their endings .svg and .emf, in the order of their
// names; links to folders are not followed, and what can't be read is passed over.
std::vector<std::string> withFoldersOpened(const std::vector<std::string>& files);

// Names from a file or from standard input, each ended by a line end, or by a zero byte; empty ones are passed over. False,
// with the system's reason in `problem`, when it can't be read.
bool readFileList(const std::string& list, bool zeroEnded, std::vector<std::string>& files,
                  std::string& problem);

} // namespace pagetool
