#include <algorithm>
#include <memory>

#include "MetafileContents.h"
#include "PageFile.h"
#include "PageWholeness.h"
#include "RecordWalk.h"
#include "RecordingSurface.h"
#include "SvgPageSize.h"
#include "commands.h"
#include "metaFilePlayer.h"
#include "quotedText.h"

namespace pagetool {

namespace {

constexpr std::size_t ProgressEvery = 4096; // lines
constexpr std::size_t WordsShown = 16;
constexpr std::size_t CommentShown = 64; // bytes

class Lines {
public:
    explicit Lines(FileJob& job) : m_job(job) {}
    void add(const std::string& line)
    {
        m_job.printLine(line);
        if (++m_count % ProgressEvery == 0) {
            m_job.progress(std::to_string(m_count).append(" lines"));
        }
    }

private:
    FileJob& m_job;
    std::size_t m_count = 0;
};

std::string commentOf(const metafile::Record& record)
{
    const auto head = record.field<EMRGDICOMMENT>(0);
    const std::size_t room = record.bytes.size() - std::min(record.bytes.size(), sizeof(EMRGDICOMMENT));
    const std::size_t length = std::min<std::size_t>(head ? head->cbData : 0, room);
    const std::size_t shown = std::min(length, CommentShown);
    std::string text =
        quotedText({reinterpret_cast<const char*>(record.bytes.data() + record.bytes.size() - room), shown});
    return shown == length ? text : text.append(" of ").append(std::to_string(length)).append(" bytes");
}

// The words after the head, as numbers.
std::string wordsOf(const metafile::Record& record)
{
    std::string text;
    const std::size_t words = (record.bytes.size() - sizeof(EMR)) / sizeof(LONG);
    for (std::size_t i = 0; i < std::min(words, WordsShown); ++i) {
        text.append(i == 0 ? "" : " ");
        text.append(std::to_string(record.field<LONG>(sizeof(EMR) + i * sizeof(LONG)).value_or(0)));
    }
    if (words > WordsShown) {
        text.append(" and ").append(std::to_string(words - WordsShown)).append(" words more");
    }
    return text;
}

std::string contentsOf(const metafile::Record& record)
{
    if (record.type == EMR_GDICOMMENT) {
        return commentOf(record);
    }
    if (const std::optional<PageFont> font = fontOf(record)) {
        const DWORD index = record.field<DWORD>(sizeof(EMR)).value_or(0);
        return std::to_string(index).append(" ").append(font->inWords());
    }
    std::string text;
    for (const PlacedText& placed : textsOf(record)) {
        text.append(text.empty() ? "(" : " (").append(std::to_string(placed.place.x)).append(", ");
        text.append(std::to_string(placed.place.y)).append(") ").append(quotedText(placed.text));
    }
    return text.empty() ? wordsOf(record) : text;
}

std::string lineOf(const metafile::Record& record)
{
    std::string line = std::to_string(record.position).append(" ").append(recordName(record.type));
    if (const std::string contents = contentsOf(record); !contents.empty()) {
        line.append(" ").append(contents);
    }
    return line;
}

} // namespace

Outcome traceCommand(FileJob& job)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return Outcome::Failed;
    }
    Lines lines(job);
    if (page->isMetafile()) {
        const std::string damage =
            walkRecords(page->bytes, [&](const metafile::Record& record) { lines.add(lineOf(record)); });
        return damage.empty() ? Outcome::Done : job.fail(damage);
    }
    const SvgPageSize size = svgPageSize(page->text());
    RecordingSurface surface([&](const std::string& call) { lines.add(call); });
    const std::unique_ptr<CMetaFilePlayer> player(CMetaFilePlayer::createPlayer(page->data(), page->size()));
    RECT whole{0, 0, size.units.cx, size.units.cy};
    if (player == nullptr || player->play(&surface, &whole) != 1) {
        return job.fail("can't be played to its end");
    }
    const std::string damage = damageOf(*page);
    return damage.empty() ? Outcome::Done : job.fail(damage);
}

} // namespace pagetool
