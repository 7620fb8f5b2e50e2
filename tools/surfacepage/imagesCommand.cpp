#include <algorithm>
#include <memory>
#include <span>
#include <string_view>

#include "MetafileContents.h"
#include "OutputFile.h"
#include "PageFile.h"
#include "PageWholeness.h"
#include "RecordWalk.h"
#include "RecordingSurface.h"
#include "commands.h"
#include "metaFilePlayer.h"

namespace pagetool {

namespace {

using Bytes = std::span<const unsigned char>;

// How files of a kind begin, whatever the page calls them.
struct FileKind {
    std::string_view start;
    const char* ending;
};
constexpr FileKind FileKinds[] = {
    {{"\x89PNG", 4}, ".png"}, {{"\xFF\xD8\xFF", 3}, ".jpg"}, {{"GIF8", 4}, ".gif"},     {{"BM", 2}, ".bmp"},
    {{"II*\0", 4}, ".tif"},   {{"MM\0*", 4}, ".tif"},        {{"\0\0\1\0", 4}, ".ico"},
};

const char* endingOf(Bytes bytes)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    for (const FileKind& kind : FileKinds) {
        if (text.starts_with(kind.start)) {
            return kind.ending;
        }
    }
    return ".bin";
}

// The pictures of one page, numbered as they come.
class PictureFiles {
public:
    PictureFiles(FileJob& job, const ImagesOptions& options) : m_job(job), m_options(options) {}

    void add(Bytes bytes)
    {
        const std::string name = std::string(m_options.stems[m_job.number()])
                                     .append("-")
                                     .append(std::to_string(++m_count))
                                     .append(endingOf(bytes));
        OutputFile file(m_job, name, *m_options.overwriting);
        if (file.write(bytes) == Outcome::Done) {
            m_job.printLine(name + ": " + std::to_string(bytes.size()) + " bytes");
        } else {
            m_outcome = Outcome::Failed;
        }
    }
    Outcome outcome() const { return m_count == 0 ? Outcome::Nothing : m_outcome; }

private:
    FileJob& m_job;
    const ImagesOptions& m_options;
    std::size_t m_count = 0;
    Outcome m_outcome = Outcome::Done;
};

// Takes what a player includes; all else is of no interest.
class PictureSurface : public RecordingSurface {
public:
    explicit PictureSurface(PictureFiles& files) : RecordingSurface([](const std::string&) {}), m_files(files)
    {
    }

    void includeImage(unsigned int, unsigned char* bytes, int size, int, int, int) override
    {
        if (bytes != nullptr && size > 0) {
            m_files.add({bytes, static_cast<std::size_t>(size)});
        }
    }

private:
    PictureFiles& m_files;
};

// Gives what is wrong with the page; empty: nothing.
std::string takeFromSvg(StoredPage& page, PictureFiles& files)
{
    PictureSurface surface(files);
    const std::unique_ptr<CMetaFilePlayer> player(CMetaFilePlayer::createPlayer(page.data(), page.size()));
    RECT nowhere{};
    const bool played = player != nullptr && player->play(&surface, &nowhere) == 1;
    const std::string damage = damageOf(page);
    return damage.empty() && !played ? "can't be played" : damage;
}

std::string takeFromMetafile(const StoredPage& page, PictureFiles& files)
{
    return walkRecords(page.bytes, [&](const metafile::Record& record) {
        if (const auto file = pictureFileOf(record)) {
            files.add(*file);
        }
    });
}

} // namespace

Outcome imagesCommand(FileJob& job, const ImagesOptions& options)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return Outcome::Failed;
    }
    PictureFiles files(job, options);
    const std::string damage =
        page->isMetafile() ? takeFromMetafile(*page, files) : takeFromSvg(*page, files);
    if (!damage.empty()) {
        return job.fail(damage);
    }
    if (files.outcome() == Outcome::Nothing) {
        job.printLine("no picture");
    }
    return files.outcome();
}

} // namespace pagetool
