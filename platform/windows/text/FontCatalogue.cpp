#include "FontCatalogue.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <tuple>

#include "CodePageText.h"

using namespace wingdi;

// The leak check's own switch; there in a process that runs with one, else null.
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizer's names
extern "C" {
[[gnu::weak]] void __lsan_disable();
[[gnu::weak]] void __lsan_enable();
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

constexpr const char* Sans = "Liberation Sans";
constexpr const char* Serif = "Liberation Serif";
constexpr const char* Mono = "Liberation Mono";

// Lower case.
struct Substitute {
    const char* name;
    const char* face;
};
constexpr Substitute Substitutes[] = {
    {"arial", Sans},        {"helvetica", Sans},      {"helv", Sans},
    {"system", Sans},       {"ms sans serif", Sans},  {"microsoft sans serif", Sans},
    {"ms shell dlg", Sans}, {"ms shell dlg 2", Sans}, {"times new roman", Serif},
    {"times", Serif},       {"tms rmn", Serif},       {"ms serif", Serif},
    {"courier new", Mono},  {"courier", Mono},        {"fixedsys", Mono},
    {"terminal", Mono},
};

constexpr BYTE FamilyMask = 0xF0;
constexpr BYTE PitchMask = 0x03;
constexpr int Heaviest = 1000;
constexpr std::size_t MostFoundFonts = 64;

// One thread at a time, with the configuration read.
std::unique_lock<std::mutex> lockFontconfig()
{
    static std::mutex mutex;
    static bool started = false;
    std::unique_lock lock(mutex);
    if (!started) {
        started = true;
        // fontconfig loses a few bytes of its own, once, while it reads its configuration.
        if (__lsan_disable != nullptr) {
            __lsan_disable();
        }
        FcInit();
        if (__lsan_enable != nullptr) {
            __lsan_enable();
        }
    }
    return lock;
}

std::string asciiLower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    return text;
}

// What is used for a face that nobody knows.
const char* defaultFace(BYTE pitchAndFamily)
{
    const int family = pitchAndFamily & FamilyMask;
    if (family == FF_MODERN || (pitchAndFamily & PitchMask) == FIXED_PITCH) {
        return Mono;
    }
    return family == FF_ROMAN ? Serif : Sans;
}

std::string faceName(const LOGFONTW& description)
{
    const WCHAR* const begin = description.lfFaceName;
    const WCHAR* const end = std::find(begin, begin + LF_FACESIZE, WCHAR{0});
    std::string name = utf8Text(std::u16string(begin, end));
    if (!name.empty() && name.front() == '@') { // "@" asks for vertical writing
        name.erase(0, 1);
    }
    const std::string lower = asciiLower(name);
    for (const Substitute& substitute : Substitutes) {
        if (lower == substitute.name) {
            return substitute.face;
        }
    }
    return name;
}

struct FontRequest {
    std::string face;
    const char* fallback;
    int weight;
    bool italic;
    bool symbol;

    auto key() const { return std::tie(face, fallback, weight, italic, symbol); }
    bool operator<(const FontRequest& other) const { return key() < other.key(); }
};

FontRequest requestFor(const LOGFONTW& description)
{
    FontRequest request{};
    request.face = faceName(description);
    request.fallback = defaultFace(description.lfPitchAndFamily);
    request.weight = description.lfWeight <= 0 ? FW_NORMAL : std::min<int>(description.lfWeight, Heaviest);
    request.italic = description.lfItalic != 0;
    request.symbol = description.lfCharSet == SYMBOL_CHARSET;
    if (request.symbol && request.face.empty()) {
        request.face = "Symbol";
    }
    return request;
}

using Pattern = std::unique_ptr<FcPattern, ReleasePattern>;

void addFamily(FcPattern* pattern, const char* name)
{
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name));
}

std::string stringOf(FcPattern* pattern, const char* object, int index = 0)
{
    FcChar8* text = nullptr;
    return FcPatternGetString(pattern, object, index, &text) == FcResultMatch
               ? reinterpret_cast<const char*>(text)
               : std::string();
}

int integerOf(FcPattern* pattern, const char* object, int missing)
{
    int value = 0;
    return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : missing;
}

Pattern match(const FontRequest& request)
{
    const Pattern pattern(FcPatternCreate());
    if (!pattern) {
        return nullptr;
    }
    if (!request.face.empty()) {
        addFamily(pattern.get(), request.face.c_str());
    }
    addFamily(pattern.get(), request.fallback);
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, FcWeightFromOpenType(request.weight));
    FcPatternAddInteger(pattern.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultMatch;
    return Pattern(FcFontMatch(nullptr, pattern.get(), &result));
}

std::shared_ptr<const FoundFont> openMatch(const FontRequest& request)
{
    const Pattern matched = match(request);
    if (!matched) {
        return nullptr;
    }
    auto found = std::make_shared<FoundFont>();
    const std::string file = stringOf(matched.get(), FC_FILE);
    const int index = integerOf(matched.get(), FC_INDEX, 0);
    found->typeface = Typeface::open(file, index, request.symbol);
    found->pattern.reset(FcPatternCreate());
    if (!found->typeface || !found->pattern) {
        return nullptr;
    }
    FcPatternAddString(found->pattern.get(), FC_FILE, reinterpret_cast<const FcChar8*>(file.c_str()));
    FcPatternAddInteger(found->pattern.get(), FC_INDEX, index);
    FcBool embolden = FcFalse;
    if (FcPatternGetBool(matched.get(), FC_EMBOLDEN, 0, &embolden) == FcResultMatch && embolden == FcTrue) {
        FcPatternAddBool(found->pattern.get(), FC_EMBOLDEN, FcTrue);
        found->emboldened = true;
    }
    FcMatrix* matrix = nullptr;
    if (FcPatternGetMatrix(matched.get(), FC_MATRIX, 0, &matrix) == FcResultMatch) {
        found->slant = matrix->xy;
    }
    return found;
}

// The English name where there are several.
std::string englishName(FcPattern* pattern, const char* object, const char* languages)
{
    for (int index = 0;; ++index) {
        const std::string language = stringOf(pattern, languages, index);
        if (language == "en") {
            return stringOf(pattern, object, index);
        }
        if (language.empty()) {
            return stringOf(pattern, object);
        }
    }
}

InstalledFont describe(FcPattern* pattern)
{
    InstalledFont font;
    font.family = englishName(pattern, FC_FAMILY, FC_FAMILYLANG);
    font.style = englishName(pattern, FC_STYLE, FC_STYLELANG);
    font.fullName = englishName(pattern, FC_FULLNAME, FC_FULLNAMELANG);
    font.file = stringOf(pattern, FC_FILE);
    font.index = integerOf(pattern, FC_INDEX, 0);
    font.weight = FcWeightToOpenType(integerOf(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR));
    font.italic = integerOf(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
    FcBool symbol = FcFalse;
    font.symbol = FcPatternGetBool(pattern, FC_SYMBOL, 0, &symbol) == FcResultMatch && symbol == FcTrue;
    return font;
}

} // namespace

void ReleasePattern::operator()(FcPattern* pattern) const noexcept
{
    FcPatternDestroy(pattern);
}

std::shared_ptr<const FoundFont> wingdi::findFont(const LOGFONTW& description)
{
    static std::map<FontRequest, std::shared_ptr<const FoundFont>> foundFonts;
    FontRequest request = requestFor(description);
    const auto lock = lockFontconfig();
    if (const auto known = foundFonts.find(request); known != foundFonts.end()) {
        return known->second;
    }
    std::shared_ptr<const FoundFont> found = openMatch(request);
    if (!found) { // a damaged file, say
        FontRequest plain = request;
        plain.face = Sans;
        found = openMatch(plain);
    }
    if (found) {
        if (foundFonts.size() >= MostFoundFonts) {
            foundFonts.clear();
        }
        foundFonts.emplace(std::move(request), found);
    }
    return found;
}

std::vector<InstalledFont> wingdi::installedFonts()
{
    struct ReleaseObjects {
        void operator()(FcObjectSet* objects) const noexcept { FcObjectSetDestroy(objects); }
    };
    struct ReleaseFonts {
        void operator()(FcFontSet* fonts) const noexcept { FcFontSetDestroy(fonts); }
    };
    const auto lock = lockFontconfig();
    const Pattern pattern(FcPatternCreate());
    const std::unique_ptr<FcObjectSet, ReleaseObjects> objects(
        FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_STYLE, FC_STYLELANG, FC_FULLNAME, FC_FULLNAMELANG,
                         FC_FILE, FC_INDEX, FC_WEIGHT, FC_SLANT, FC_SYMBOL, static_cast<char*>(nullptr)));
    if (!pattern || !objects) {
        return {};
    }
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
    const std::unique_ptr<FcFontSet, ReleaseFonts> listed(FcFontList(nullptr, pattern.get(), objects.get()));
    std::vector<InstalledFont> fonts;
    for (int index = 0; listed && index < listed->nfont; ++index) {
        fonts.push_back(describe(listed->fonts[index]));
    }
    const auto order = [](const InstalledFont& font) {
        return std::tie(font.family, font.style, font.file);
    };
    std::sort(fonts.begin(), fonts.end(),
              [&](const auto& first, const auto& second) { return order(first) < order(second); });
    const auto same = [](const InstalledFont& first, const InstalledFont& second) {
        return first.family == second.family && first.style == second.style;
    };
    fonts.erase(std::unique(fonts.begin(), fonts.end(), same), fonts.end());
    return fonts;
}
