// Runs the painting programs; see painters.h.
#include "painters.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// The program is looked for as a shell would; no shell reads the arguments.
bool run(std::vector<std::string> arguments)
{
    std::vector<char*> list;
    list.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) {
        list.push_back(argument.data());
    }
    list.push_back(nullptr);
    pid_t child = 0;
    int status = 0;
    return posix_spawnp(&child, list.front(), nullptr, nullptr, list.data(), environ) == 0 &&
           waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

constexpr const char* Faces[] = {"Arial", "Times New Roman", "Courier New"};

// How a document calls a style of a face, and how fontconfig does.
struct Style {
    const char* suffix;
    const char* pattern;
};
constexpr Style Styles[] = {
    {"", ""}, {"-Bold", ":bold"}, {"-Italic", ":italic"}, {"-BoldItalic", ":bold:italic"}};

// Empty when nothing answers.
std::string fontFileOf(const std::string& pattern)
{
    struct Close {
        void operator()(std::FILE* pipe) const { pclose(pipe); }
    };
    const std::string command = "fc-match --format '%{file}' '" + pattern + "' 2>/dev/null";
    const std::unique_ptr<std::FILE, Close> pipe(popen(command.c_str(), "r"));
    std::string file;
    for (int character = 0; pipe != nullptr && (character = std::fgetc(pipe.get())) != EOF;) {
        file += static_cast<char>(character);
    }
    return file;
}

// The files that the table names, as a list that Ghostscript takes.
std::string filesIn(const fs::path& fontMap)
{
    std::string files = fontMap.string();
    std::ifstream in(fontMap);
    for (std::string line; std::getline(in, line);) {
        const std::size_t start = line.find("(/") + 1;
        files.append(":").append(line, start, line.rfind(')') - start);
    }
    return files;
}

} // namespace

bool paintSvg(const fs::path& svg, const fs::path& png, double dotsPerInch)
{
    constexpr double UnitsPerInch = 96;
    return run({"rsvg-convert", "--zoom=" + std::to_string(dotsPerInch / UnitsPerInch),
                "--background-color=white", "--output", png.string(), svg.string()});
}

bool paintPostScript(const fs::path& document, const fs::path& png, double dotsPerInch,
                     const fs::path& fontMap, Paper paper)
{
    return run({"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=png16m", "-dTextAlphaBits=4",
                "-dGraphicsAlphaBits=4", "-dDEVICEWIDTHPOINTS=" + std::to_string(paper.pointsWide),
                "-dDEVICEHEIGHTPOINTS=" + std::to_string(paper.pointsHigh),
                "-r" + std::to_string(dotsPerInch), "-sFONTMAP=" + fontMap.string() + ":Fontmap.GS",
                "--permit-file-read=" + filesIn(fontMap), "-sOutputFile=" + png.string(), document.string()});
}

bool writeFontMap(const fs::path& fontMap)
{
    std::ofstream out(fontMap);
    bool all = true;
    for (const char* face : Faces) {
        for (const Style& style : Styles) {
            const std::string file = fontFileOf(std::string(face) + style.pattern);
            all &= !file.empty();
            if (!file.empty()) {
                out << '(' << face << style.suffix << ") (" << file << ") ;\n";
            }
        }
    }
    return all;
}
