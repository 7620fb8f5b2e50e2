// surfacepage: looks into stored pages, plays, stamps, searches and traces them. See man/surfacepage.1.
#include <CLI/CLI.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

#include "Arguments.h"
#include "FileIdentity.h"
#include "FileLists.h"
#include "FileOrder.h"
#include "FilePatterns.h"
#include "OverwriteRule.h"
#include "StandardOutput.h"
#include "commands.h"

using namespace pagetool;

namespace {

#if defined(_WIN32)
constexpr const char* NullDevice = "NUL";
#else
constexpr const char* NullDevice = "/dev/null";
#endif

class CommandLine {
public:
    CommandLine()
    {
        m_app.set_version_flag("--version", "surfacepage " SURFACEPAGE_VERSION);
        m_app.require_subcommand(1);
        m_app.formatter(std::make_shared<UsageOfArguments>());
        m_app.footer(
            "Exit codes: 0 done, 1 nothing found, stamped or taken out, 2 a file failed or the arguments are "
            "wrong, 3 a damaged page "
            "was drawn in part.\nNothing is written over a file that is read, stamp apart, and over "
            "another stored page with "
            "--force only.");
        addInfo();
        addPlay();
        addStamp();
        addFind();
        addText();
        addImages();
        addTrace();
    }

    int run(int count, char** arguments)
    {
        try {
            m_app.parse(count, arguments);
        } catch (const CLI::ParseError& problem) {
            if (const std::string cause = causeOf(problem, {arguments + 1, arguments + count});
                !cause.empty()) {
                std::fprintf(stderr, "surfacepage: %s\nsurfacepage --help says more.\n", cause.c_str());
                return static_cast<int>(Outcome::Failed);
            }
            return m_app.exit(problem) == 0 ? 0 : static_cast<int>(Outcome::Failed);
        }
        if (!m_warning.empty()) {
            std::fprintf(stderr, "surfacepage: %s\n", m_warning.c_str());
        }
        const int code = runJobs(m_files, m_threads, m_command, m_quiet);
        std::string problem = m_document ? m_document->finish() : std::string();
        if (problem.empty() && m_standardOutput.isBegun()) {
            problem = m_standardOutput.send();
        }
        if (!problem.empty()) {
            std::fprintf(stderr, "surfacepage: %s\n", problem.c_str());
        }
        return problem.empty() ? code : static_cast<int>(Outcome::Failed);
    }

private:
    // In plain words, where the parser's own would not say it; else empty.
    std::string causeOf(const CLI::ParseError& problem, const std::vector<std::string>& arguments) const
    {
        const auto isNamed = [&](const CLI::App* command) {
            return command->get_name() == arguments[0];
        };
        if (!arguments.empty() && !arguments[0].starts_with('-') &&
            std::ranges::none_of(m_app.get_subcommands({}), isNamed)) {
            return std::string(arguments[0]).append(" is no command");
        }
        const bool isExtra = dynamic_cast<const CLI::ExtrasError*>(&problem) != nullptr;
        for (const std::string& argument : arguments) {
            std::error_code unknown;
            if (isExtra && argument.starts_with('-') && std::filesystem::exists(argument, unknown)) {
                return std::string(argument).append(
                    " looks like an option: write -- before the names of files");
            }
        }
        return {};
    }

    // A command on files; `check` looks at its options once all are known.
    CLI::App* add(const char* name, const char* does, FileCommand command,
                  const std::function<void()>& check = {})
    {
        CLI::App* const added = m_app.add_subcommand(name, does);
        added
            ->add_option("FILE", m_files,
                         "Stored pages: SVG pages or enhanced metafiles; - is standard input")
            ->type_name("");
        added->add_flag("-r,--recursive", m_opensFolders,
                        "Take the .svg and .emf files of folders and below");
        added
            ->add_option("--files-from", m_fileList,
                         "Take further names from a file, one a line; - is standard input")
            ->type_name("LIST");
        added->add_flag("-0", m_zeroEnded, "Names there end with a zero byte, as find -print0 writes them");
        added->add_flag("-q,--quiet", m_quiet, "Print nothing; the exit code says it");
        added->add_option("-j,--jobs", m_threads, "Files worked on at the same time")
            ->check(objectionToNumber)
            ->check(CLI::Range(1, 256))
            ->capture_default_str();
        added->final_callback([this, command = std::move(command), check] {
            if (check) {
                check();
            } else {
                completeFiles();
            }
            if (m_files.empty()) {
                throw CLI::RequiredError("FILE");
            }
            m_command = command;
        });
        return added;
    }

    // Once what is not a file has been taken away.
    void completeFiles()
    {
        std::string problem;
        if (!m_fileList.empty() &&
            !readFileList(std::exchange(m_fileList, {}), m_zeroEnded, m_files, problem)) {
            refuse("--files-from", problem);
        }
        if (m_opensFolders) {
            m_files = withFoldersOpened(m_files);
        }
    }

    std::vector<std::string> outputs(const std::string& pattern)
    {
        std::string problem;
        std::vector<std::string> names = outputNames(pattern, m_files, problem);
        if (!problem.empty()) {
            refuse("-o", problem);
        }
        return names;
    }

    void addForce(CLI::App* command)
    {
        command->add_flag("--force", m_overwriting.force, "Overwrite stored pages that are no FILE");
    }

    // Once the files are known.
    const OverwriteRule* overwriting()
    {
        m_overwriting.inputs = FileSet(m_files);
        return &m_overwriting;
    }

    void addInfo()
    {
        CLI::App* const info =
            add("info", "Show what is on pages", [this](FileJob& job) { return infoCommand(job, m_info); });
        addJson(info, m_info.json, "Print an object of JSON for each page, on a line");
        info->add_flag("-b,--brief", m_info.brief, "Count fonts, images and texts, and list none");
    }

    void addPlay()
    {
        CLI::App* const play = add(
            "play", "Play pages to another format", [this](FileJob& job) { return playCommand(job, m_play); },
            [this] { checkPlay(); });
        play->add_option(
                "-o,--output", m_pattern,
                "What to write, ending in .pdf (all pages in one, in the order given), .png, .jpg, .svg, .ps "
                "or "
                ".emf; a metafile does not play to .ps, and to .svg as --plain. {} stands for the name of "
                "FILE without folder and ending")
            ->required();
        play->add_option("--format", m_format, "What to write to standard output, which -o - names")
            ->check(CLI::IsMember({"pdf", "png", "jpg", "svg", "ps", "emf"}))
            ->capture_default_str();
        addForce(play);
        play->add_flag("--pixels", m_play.pixels,
                       "A .png without smoothed edges, as a device of pixels paints it");
        play->add_flag("--plain", m_play.plain,
                       "A .svg for browsers and other viewers, which shows what pixels do; no stored page");
        play->add_option("--title", m_play.texts.title, "Title of a .pdf");
        play->add_option("--author", m_play.texts.author, "Author of a .pdf");
        addPictureOptions(play);
    }

    void addPictureOptions(CLI::App* play)
    {
        PictureOptions& picture = m_play.picture;
        const auto addNumber = [&](const char* name, int& number, int most, const char* means) {
            CLI::Option* const option =
                play->add_option(name, number, means)->check(objectionToNumber)->check(CLI::Range(1, most));
            m_pictureOptions.push_back(option);
            return option;
        };
        constexpr int LongestSide = 65500;
        CLI::Option* const dpi =
            addNumber("--dpi", picture.dpi, 4800, "Dots per inch of a .png or .jpg")->capture_default_str();
        addNumber("--width", picture.width, LongestSide,
                  "Pixels across of the whole page in place of --dpi; with --height it is stretched")
            ->excludes(dpi);
        addNumber("--height", picture.height, LongestSide, "Pixels down of the whole page")->excludes(dpi);
        m_pictureOptions.push_back(
            play->add_option("--crop", m_crop, "Only this part of the picture, in pixels")
                ->type_name("X,Y,WIDTHxHEIGHT"));
        addNumber("--quality", picture.quality, 100, "Of a .jpg")->capture_default_str();
    }

    void checkPlay()
    {
        completeFiles();
        if (m_pattern == StandardStream) {
            m_pattern = m_standardOutput.begin(m_format);
            if (m_pattern.empty()) {
                refuse("-o", "there is no folder for temporary files");
            }
        }
        if (!m_crop.empty()) {
            m_play.picture.crop = cropOf(m_crop);
            if (!m_play.picture.crop) {
                refuse("--crop", m_crop + " is no part such as 10,20,300x200");
            }
        }
        m_play.overwriting = overwriting();
        if (isDocument(m_pattern) && m_pattern.find("{}") == std::string::npos) {
            m_document.emplace(m_pattern, m_play.texts, m_overwriting);
            m_play.document = &*m_document;
            m_play.outputs.assign(m_files.size(), m_pattern);
            m_threads = 1;
        } else {
            m_play.outputs = outputs(m_pattern);
        }
        for (const std::string& output : m_play.outputs) {
            const auto given = std::ranges::find_if(
                m_pictureOptions, [](const CLI::Option* option) { return option->count() > 0; });
            if (const std::string problem = problemOfPlayOutput(
                    output, given != m_pictureOptions.end() ? (*given)->get_name() : std::string());
                !problem.empty()) {
                refuse("-o", problem);
            }
        }
    }

    void addStamp()
    {
        CLI::App* const stamp = add(
            "stamp", "Stamp the page count \"N of M\" into pages, in place, and say which page got which",
            [this](FileJob& job) { return stampCommand(job, m_stamp); }, [this] { checkStamp(); });
        addLast(stamp, "N", "Number of the page; further files count on from it");
        addLast(stamp, "M", "Number of pages");
        stamp->add_flag("--sort", m_sorts, "Take the files in the order of the numbers in their names");
        stamp->add_flag("-n,--dry-run", m_stamp.dryRun, "Say what would be stamped, and write nothing");
    }

    void checkStamp()
    {
        m_stamp.pageCount = takeLastNumber(m_files, "M", m_fileList.empty());
        m_stamp.firstNumber = takeLastNumber(m_files, "N", m_fileList.empty());
        completeFiles();
        if (std::ranges::find(m_files, StandardStream) != m_files.end()) {
            refuse("FILE", "standard input can't be stamped in place");
        }
        if (m_stamp.firstNumber == 0) {
            refuse("N", "pages are counted from 1");
        }
        const std::size_t last = static_cast<std::size_t>(m_stamp.firstNumber) + m_files.size() - 1;
        if (last > static_cast<std::size_t>(m_stamp.pageCount)) {
            refuse("N", std::string("the last page would be ")
                            .append(std::to_string(last))
                            .append(" of ")
                            .append(std::to_string(m_stamp.pageCount)));
        }
        const FileSet files(m_files);
        if (const auto& [first, second] = files.twice(); !first.empty()) {
            refuse("FILE", std::string(first).append(" and ").append(second).append(" are one file"));
        }
        if (m_sorts) {
            std::stable_sort(m_files.begin(), m_files.end(), comesBefore);
        } else if (const std::string disorder = disorderOf(m_files); !disorder.empty()) {
            m_warning =
                std::string(disorder).append("; --sort takes the files in the order of their numbers");
        }
    }

    void addFind()
    {
        CLI::App* const find = add(
            "find", "Find a text on pages, all hits with their places",
            [this](FileJob& job) { return findCommand(job, m_find); }, [this] { checkFind(); });
        addLast(find, "TEXT", "What to find");
        addForce(find);
        addJson(find, m_find.json, "Print an object of JSON for each hit, on a line");
        find->add_flag("--case", m_find.matchCase, "Upper and lower case differ");
        find->add_flag("--word", m_find.wholeWord, "Whole words only");
        find->add_flag("-c,--count", m_find.countOnly, "Print how many hits each page has, and no hit");
        CLI::Option* const marked =
            find->add_option("-o,--output", m_pattern,
                             "Write a copy of the page with a hit marked; {} stands for the name of FILE "
                             "without folder and ending");
        find->add_flag("--show", m_find.shown, "Colour the hit there, so that viewers of SVG show it");
        find->add_option("--hit", m_find.markedHit, "Which hit is marked there")
            ->needs(marked)
            ->check(objectionToNumber)
            ->check(CLI::Range(1, std::numeric_limits<int>::max()))
            ->capture_default_str();
    }

    void checkFind()
    {
        m_find.text = takeLast(m_files, "TEXT", m_fileList.empty());
        completeFiles();
        if (m_find.text.empty()) {
            refuse("TEXT", "is empty");
        }
        if (!m_pattern.empty()) {
            m_find.overwriting = overwriting();
            m_find.markedPages = outputs(m_pattern);
        }
    }

    // For the help only: takeLast gives its value.
    void addLast(CLI::App* command, const char* name, const char* means)
    {
        command->add_option(name, m_shownOnly, means)->type_name("");
    }

    void addText()
    {
        CLI::App* const text = add("text", "Print the texts of pages in reading order, one a line",
                                   [this](FileJob& job) { return textCommand(job, m_textJson); });
        addJson(text, m_textJson, "Print an object of JSON for each page, on a line");
    }

    void addImages()
    {
        CLI::App* const images = add(
            "images", "Take the pictures out of pages, each as a file",
            [this](FileJob& job) { return imagesCommand(job, m_images); },
            [this] {
                completeFiles();
                m_images.overwriting = overwriting();
                m_images.stems = outputs(m_pattern.empty() ? "{}" : m_pattern);
            });
        images->add_option(
            "-o,--output", m_pattern,
            "How the names begin, which end in -1.png, -2.jpg; {} (also without this) stands for "
            "the name of FILE without folder and ending");
        addForce(images);
    }

    static void addJson(CLI::App* command, bool& json, const char* means)
    {
        command->add_flag("--json", json, means);
    }

    void addTrace()
    {
        add("trace", "List the surface calls of SVG pages, or the records of metafiles, one a line",
            traceCommand);
    }

    CLI::App m_app{"Looks into stored pages of the surface library, plays, stamps, searches and traces them.",
                   "surfacepage"};
    std::vector<std::string> m_files;
    std::string m_fileList;
    StandardOutput m_standardOutput;
    std::string m_format = "pdf"; // on standard output
    std::string m_pattern;        // of output files
    std::string m_shownOnly;
    std::vector<const CLI::Option*> m_pictureOptions; // what only pictures have
    std::string m_crop;
    std::string m_warning; // said before the work begins
    OverwriteRule m_overwriting{FileSet({}), false};
    std::optional<DocumentFile> m_document;
    InfoOptions m_info;
    PlayOptions m_play;
    StampOptions m_stamp;
    FindOptions m_find;
    ImagesOptions m_images;
    FileCommand m_command;
    unsigned int m_threads = 1;
    bool m_opensFolders = false;
    bool m_zeroEnded = false;
    bool m_quiet = false;
    bool m_sorts = false;
    bool m_textJson = false;
};

} // namespace

int main(int count, char** arguments)
{
    // A file must not be opened under the number of a closed standard stream: messages would go into it.
    int stream = 0;
    while (stream >= 0 && stream <= STDERR_FILENO) {
        stream = open(NullDevice, O_RDWR);
    }
    if (stream >= 0) {
        close(stream);
    }
    return CommandLine().run(count, arguments);
}
