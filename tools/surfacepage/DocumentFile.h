// One PDF of many pages: those of all files of a run, in their order.
#pragma once

#include <string>

#include <windows.h>

#include "OverwriteRule.h"
#include "PictureSize.h"
#include "PlayedPage.h"

namespace pagetool {

struct DocumentTexts {
    std::string title; // UTF-8
    std::string author;
};

class DocumentFile {
public:
    // The rule lives as long.
    DocumentFile(std::string path, DocumentTexts texts, const OverwriteRule& rule);
    DocumentFile(const DocumentFile&) = delete;
    DocumentFile& operator=(const DocumentFile&) = delete;
    ~DocumentFile();

    // Adds a page and its entry in the outline. The file begins with the first one.
    Outcome add(FileJob& job, PlayedPage& page);
    // Gives the file its place. What is wrong; empty: nothing. Without a page there is no file.
    std::string finish();

private:
    // What is wrong; empty: nothing.
    std::string open();

    const std::string m_path;
    const DocumentTexts m_texts;
    const OverwriteRule& m_rule;
    HDC m_device = nullptr;
    std::string m_problem; // since which nothing more is added
};

// The resolution at which a page's own units are those of a device, as nearly as whole numbers are.
int ownDotsPerInch(const Sheet& sheet);
// Plays a page over the whole of a device.
bool playOver(HDC device, PlayedPage& page, const PictureSize* part = nullptr);

} // namespace pagetool
