#include "benchmarks/generator/Prose.hpp"

#include <algorithm>
#include <span>

namespace reference::docparser::benchmarks {

namespace {

using Words = std::span<const std::string_view>;

constexpr std::string_view kEnglish[] = {
    "the",      "of",      "value", "returns", "signal", "a",       "for",   "each",   "number",
    "and",      "input",   "row",   "column",  "with",   "filter",  "of",    "to",     "specified",
    "sampling", "rate",    "array", "name",    "option", "display", "text",  "create", "estimate",
    "vector",   "measure", "from",  "in",      "window", "segment", "length"};
constexpr std::string_view kGerman[] = {
    "der",    "die",         "Länge",    "gibt",      "Größe",     "ein",     "für",
    "jede",   "Anzahl",      "und",      "Eingabe",   "Zeile",     "Spalte",  "mit",
    "Filter", "Übertragung", "zurück",   "Wert",      "angegeben", "Signal",  "Feld",
    "Name",   "Auswahl",     "anzeigen", "Text",      "erzeugt",   "schätzt", "Vektor",
    "misst",  "aus",         "Fenster",  "Abschnitt", "Schlüssel"};
constexpr std::string_view kRussian[] = {
    "значение", "возвращает", "сигнал", "для",     "каждого", "число",    "и",
    "вход",     "строка",     "на",     "столбец", "фильтр",  "заданный", "частота",
    "массив",   "имя",        "выбор",  "текст",   "создаёт", "оценка",   "вектор",
    "измеряет", "из",         "в",      "окно",    "длина",   "отрезок",  "с"};
constexpr std::string_view kJapanese[] = {
    "信号",       "の",         "値",       "を",     "返します", "入力",     "行",   "列",
    "と",         "フィルター", "指定",     "された", "サンプル", "レート",   "配列", "名前",
    "オプション", "表示",       "テキスト", "作成",   "推定",     "ベクトル", "測定", "から",
    "に",         "窓",         "区間",     "長さ",   "する",     "は"};

constexpr std::string_view kParts[] = {
    "signal", "rate", "window", "branch", "height", "index",  "frame",  "level", "count",
    "color",  "axis", "sample", "model",  "noise",  "filter", "buffer", "scale", "tree",
    "graft",  "set",  "get",    "fit",    "plot",   "read",   "write",  "phase"};

constexpr std::string_view kFirstNames[] = {
    "amber",   "birch",  "copper", "delta",   "ember", "fern",   "garnet", "harbor",
    "iron",    "jade",   "kelp",   "lumen",   "maple", "north",  "ocean",  "pearl",
    "quartz",  "river",  "slate",  "timber",  "ultra", "velvet", "willow", "xenon",
    "yarrow",  "zephyr", "alpine", "basalt",  "cedar", "dune",   "echo",   "flint",
    "glacier", "hazel",  "indigo", "juniper", "kite",  "laurel", "mesa",   "nova"};
constexpr std::string_view kLastNames[] = {
    "bridge", "wave",   "field", "grid",   "mill",   "port",  "sound",  "track",
    "vault",  "works",  "yard",  "beam",   "craft",  "drive", "engine", "forge",
    "gate",   "house",  "image", "joint",  "kernel", "link",  "motor",  "net",
    "optics", "path",   "query", "robot",  "scope",  "tools", "units",  "vision",
    "weaver", "matrix", "labs",  "stream", "tables", "logic", "maps",   "radar"};

Words wordsOf(Language language) noexcept {
    switch (language) {
    case Language::German: return kGerman;
    case Language::Russian: return kRussian;
    case Language::Japanese: return kJapanese;
    case Language::English: break;
    }
    return kEnglish;
}

} // namespace

std::string_view languageCode(Language language) noexcept {
    constexpr std::string_view kCodes[] = {"en", "de", "ru", "ja"};
    return kCodes[static_cast<std::size_t>(language)];
}

std::string Prose::text(std::size_t bytes) {
    const std::string_view separator = language_ == Language::Japanese ? "" : " ";
    std::string text(random_.pick(wordsOf(language_)));
    while (text.size() < bytes)
        text.append(separator).append(random_.pick(wordsOf(language_)));
    if (random_.chance(0.03))
        text.append(separator).append("\"auto\"");
    if (random_.chance(0.02))
        text.append(separator).append("2 × 3");
    if (random_.chance(0.01))
        text.append("\n").append(random_.pick(wordsOf(language_)));
    return text;
}

std::string Prose::textAround(double meanBytes) {
    // The square of an even number has a long upper tail; its mean is a third of its maximum.
    const double root = random_.fraction();
    const double bytes = meanBytes * (0.4 + 1.8 * root * root);
    return text(static_cast<std::size_t>(bytes));
}

std::string identifier(Random& random, std::size_t words) {
    std::string name;
    for (std::size_t word = 0; word < words; ++word) {
        const std::string_view part = random.pick(kParts);
        name += part;
        if (word > 0) {
            char& first = name[name.size() - part.size()];
            first = static_cast<char>(first - 'a' + 'A');
        }
    }
    return name;
}

std::string productName(std::size_t index) {
    constexpr std::size_t kCount = std::size(kFirstNames);
    // Neighbours differ in both halves, as names of real products do.
    const std::size_t last = (index / kCount + index) % kCount;
    return std::string(kFirstNames[index % kCount]).append(kLastNames[last]);
}

} // namespace reference::docparser::benchmarks
