// The commands of the tool. Each is a job on one file.
#pragma once

#include <string>
#include <vector>

#include "DocumentFile.h"
#include "FileJobs.h"
#include "OverwriteRule.h"
#include "PictureSize.h"

namespace pagetool {

struct InfoOptions {
    bool brief = false; // counts only
    bool json = false;
};
// Format, length, size, elements or records, fonts, images and text, in lines or as one object of JSON. Fails for a damaged page, of which it shows
// what there is.
Outcome infoCommand(FileJob& job, const InfoOptions& options);

struct PlayOptions {
    std::vector<std::string> outputs; // of each job; their endings are known
    PictureOptions picture;
    bool pixels = false;              // pictures without smoothed edges
    bool plain = false;               // SVG for viewers, not as a stored page
    DocumentTexts texts;              // of documents
    DocumentFile* document = nullptr; // of all pages together; null: outputs are for each
    const OverwriteRule* overwriting = nullptr;
};
// Whether the output holds many pages.
bool isDocument(const std::string& output);
// Empty when this name of an output, by its ending, can be played to. `pictureOption`: an option given that only pictures
// have; empty: none.
std::string problemOfPlayOutput(const std::string& output, const std::string& pictureOption);
// Plays the page to another format.
Outcome playCommand(FileJob& job, const PlayOptions& options);

struct StampOptions {
    int firstNumber = 1; // of the first file; the others count on
    int pageCount = 1;
    bool dryRun = false; // say what would be stamped, and write nothing
};
// Stamps the page count into the file itself, and says what it stamped. Nothing: the page shows none.
Outcome stampCommand(FileJob& job, const StampOptions& options);

struct FindOptions {
    std::string text; // as it is, and as UTF-8 or code page 1252 has it
    bool matchCase = false;
    bool wholeWord = false;
    bool countOnly = false; // how many hits, not each of them
    bool json = false;
    std::vector<std::string> markedPages; // of each job; empty: none
    unsigned int markedHit = 1;           // the hit that is marked there
    bool shown = false;                   // in a colour, for viewers
    const OverwriteRule* overwriting = nullptr;
};
// All hits with their places and the text around them, as they are found. Nothing: there is none.
Outcome findCommand(FileJob& job, const FindOptions& options);

// The texts in reading order, one a line, as UTF-8, or all with their places as one object of JSON. Fails for a damaged page,
// after those that are there.
Outcome textCommand(FileJob& job, bool json);

struct ImagesOptions {
    std::vector<std::string> stems; // of each job: how the names of its files begin
    const OverwriteRule* overwriting = nullptr;
};
// Writes each picture of the page as a file STEM-1.png, STEM-2.jpg, and says which. Nothing: the page has none. Fails for a
// damaged page, after those that are there.
Outcome imagesCommand(FileJob& job, const ImagesOptions& options);

// The surface calls of an SVG page or the records of a metafile, one a line. Fails for a damaged page, at its damage.
Outcome traceCommand(FileJob& job);

} // namespace pagetool
