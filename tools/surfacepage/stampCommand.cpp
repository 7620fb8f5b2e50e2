#include "OutputFile.h"
#include "PageFile.h"
#include "commands.h"
#include "metaFilePlayer.h"

namespace pagetool {

Outcome stampCommand(FileJob& job, const StampOptions& options)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return Outcome::Failed;
    }
    const int number = options.firstNumber + static_cast<int>(job.number());
    if (!CMetaFilePlayer::insertPageCount(page->data(), static_cast<int>(page->size()), number,
                                          options.pageCount)) {
        job.complain("shows no page count, so nothing was stamped");
        return Outcome::Nothing;
    }
    return OutputFile(job, job.file()).write(page->bytes);
}

} // namespace pagetool
