// Runs a fuzzer's code where there is no fuzzing engine: over each page of a corpus, each of its beginnings, and
// pages derived from it. Without chance: every run sees the same pages.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int DerivedPages = 1000; // of each page

void run(const std::string& page)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(page.data()), page.size());
}

// Changes one to eight places: a byte, a number in digits or in four bytes, a piece left out or copied elsewhere.
std::string derived(std::string page, std::mt19937& random)
{
    for (auto changes = random() % 8 + 1; changes > 0 && !page.empty(); --changes) {
        const std::size_t place = random() % page.size();
        const std::size_t length = random() % 40;
        switch (random() % 5) {
        case 0:
            page[place] = "<>'=,# \0g/"[random() % 10];
            break;
        case 1:
            page.insert(place, random() % 2 == 0 ? "-2147483648" : "99999999999");
            break;
        case 2:
            page.erase(place, length);
            break;
        case 3: {
            const std::string_view numbers("\0\0\0\0\x08\0\0\0\x54\0\0\0\xFC\xFF\xFF\x7F\xFF\xFF\xFF\xFF",
                                           20);
            page.replace(place / 4 * 4, 4, numbers.substr(random() % 5 * 4, 4));
            break;
        }
        default:
            page.insert(place, page.substr(random() % page.size(), length));
        }
    }
    return page;
}

} // namespace

int main(int count, char** arguments)
{
    std::set<std::filesystem::path> files;
    for (int index = 1; index < count; ++index) {
        for (const auto& file : std::filesystem::directory_iterator(arguments[index])) {
            files.insert(file.path());
        }
    }
    std::mt19937 random; // its default seed
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        const std::string page{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        for (std::size_t length = 0; length <= page.size(); ++length) {
            run(page.substr(0, length));
        }
        for (int number = 0; number < DerivedPages; ++number) {
            run(derived(page, random));
        }
    }
    std::printf("%zu pages and what was derived from them\n", files.size());
    return files.empty() ? 1 : 0;
}
