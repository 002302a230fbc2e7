#include "benchmarks/peers/IndexReader.hpp"
#include "benchmarks/peers/Peers.hpp"
#include "benchmarks/rows/Row.hpp"
#include "benchmarks/rows/SharedParse.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/parsing/DocumentParser.hpp"
#include "docparser/parsing/ItemParser.hpp"
#include "docparser/parsing/LookupParser.hpp"
#include "docparser/retrieval/LookupFiles.hpp"
#include "docparser/retrieval/ResourceText.hpp"

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

namespace reference::docparser::benchmarks {

using property::RefItem;
using property::RefItemLookup;

namespace {

using Texts = std::vector<std::string>;

// One call's worth of the work of a group.
template <class Result>
struct Case {
    const Corpus& corpus;
    std::string language;
    std::u16string product;          // whose records are wanted; empty for the lookup index
    Texts texts{};                   // what the call reads
    std::optional<Result> records{}; // what it returns
};

// One way to do the work.
template <class Result>
struct Method {
    const char* name;
    Result (*run)(const Case<Result>& work, Texts texts);
    bool needsTexts = false;   // else `texts` is empty
    bool needsRecords = false; // of the case
    bool makesRecords = true;  // else the result is empty
};

// Copies texts as a program has them that has just read them: with room at the end, so that no
// parser has to copy them again.
Texts copyOf(const Texts& texts) {
    Texts copies(texts.size());
    for (std::size_t index = 0; index < texts.size(); ++index) {
        copies[index].reserve(texts[index].size() + kSpareBytes);
        copies[index] = texts[index];
    }
    return copies;
}

// The cases of a group, which all its rows share.
template <class Result>
class Group {
public:
    using Cases = std::vector<Case<Result>>;
    using LoadTexts = std::function<void(Cases&)>;

    // \param cases      may be empty, in which case `loadTexts` adds them
    // \param loadTexts  called once, when the texts are first needed
    Group(std::string language, const Corpus& corpus, Cases cases, LoadTexts loadTexts,
          Method<Result> library)
        : language_(std::move(language)),
          corpus_(corpus),
          cases_(std::move(cases)),
          loadTexts_(std::move(loadTexts)),
          library_(library) {}

    void measure(const Method<Result>& method, Meter& meter) {
        corpus_.setLanguage(language_);
        // Loading the lookup files runs code of the library, which must not precede a first call.
        if (method.needsTexts)
            load();
        for (Case<Result>& work : cases_) {
            if (method.needsRecords)
                warm(recordsOf(work));
            meter.measure([&] { return method.needsTexts ? copyOf(work.texts) : Texts(); },
                          [&](Texts texts) { return method.run(work, std::move(texts)); });
        }
        load();
        for (const Case<Result>& work : cases_) {
            for (const std::string& text : work.texts)
                meter.addText(text.size());
        }
    }

    bool isCorrect(const Method<Result>& method) {
        corpus_.setLanguage(language_);
        load();
        return std::ranges::all_of(cases_, [&](Case<Result>& work) {
            const Result& expected = recordsOf(work);
            return method.run(work, copyOf(work.texts)) == expected;
        });
    }

private:
    void load() {
        if (loadTexts_)
            std::exchange(loadTexts_, nullptr)(cases_);
    }

    const Result& recordsOf(Case<Result>& work) {
        if (!work.records)
            work.records = library_.run(work, copyOf(work.texts));
        return *work.records;
    }

    // A reader finds its document in the cache, so the records to copy have to be there too.
    static void warm(const Result& records) {
        if (!(records == records))
            throw std::logic_error("records that differ from themselves");
    }

    std::string language_;
    const Corpus& corpus_;
    Cases cases_;
    LoadTexts loadTexts_;
    Method<Result> library_;
};

// Floors.

template <class Result>
Result parse(const Case<Result>&, Texts texts) {
    for (const std::string& text : texts) {
        boost::json::monotonic_resource arena(1024);
        parseDocument(text, arena);
    }
    return {};
}

template <class Result>
Result sharedParse(const Case<Result>&, Texts texts) {
    for (const std::string& text : texts)
        parseWithSharedJson(text);
    return {};
}

template <class Result, Result (*parse)(const Case<Result>&, Texts)>
Result parseAndCopy(const Case<Result>& work, Texts texts) {
    parse(work, std::move(texts));
    return *work.records;
}

template <class T>
ResourceMap<T> readNothing(std::string, const std::u16string&) {
    return {};
}

// From text to records.

template <class T>
using ReadText = ResourceMap<T> (*)(std::string text, const std::u16string& product);

ResourceMap<RefItem> readFullText(std::string text, const std::u16string& product) {
    return parseResourceText<RefItem>(std::move(text), product, parseRefItemSection, unobserved);
}

ResourceMap<RefItemLookup> readLookupText(std::string text, const std::u16string& product) {
    return parseResourceText<RefItemLookup>(std::move(text), product, parseRefItemLookupSection,
                                            unobserved);
}

template <class T, ReadText<T> read>
ResourceMap<T> readText(const Case<ResourceMap<T>>& work, Texts texts) {
    return read(std::move(texts.front()), work.product);
}

// From the root to the records of a product.

using Resources = ResourceMap<RefItem>;

Resources getProduct(const Case<Resources>& work, Texts) {
    return DocResourceParser::getResourceFile(work.product);
}

template <ReadText<RefItem> read>
Resources readProduct(const Case<Resources>& work, Texts) {
    Resources english = read(readFile(work.corpus.fullFile(work.product, "en")), work.product);
    if (work.language == "en")
        return english;
    std::string text = readFile(work.corpus.fullFile(work.product, work.language));
    if (text.empty())
        return english;
    Resources result = read(std::move(text), work.product);
    for (auto& [key, section] : english) {
        const auto [translated, isNew] = result.try_emplace(key, std::move(section));
        if (!isNew)
            translated->second.items.merge(section.items);
    }
    return result;
}

// From the root to the lookup index.

LookupResults getIndex(const Case<LookupResults>&, Texts) {
    return DocResourceParser::getResourceLookupFiles();
}

template <ReadText<RefItemLookup> read>
LookupResults readIndexWith(const Case<LookupResults>& work, Texts) {
    const Corpus& corpus = work.corpus;
    return readIndex(corpus.lookupFolder(), {.readText = read,
                                             .language = work.language,
                                             .languages = corpus.languages(),
                                             .isInstalled = [&](const std::u16string& key) {
                                                 return corpus.isInstalled(key);
                                             }});
}

// The groups.

template <class Result>
constexpr Method<Result> kParse{
    .name = "parse", .run = parse<Result>, .needsTexts = true, .makesRecords = false};

template <class Result>
constexpr Method<Result> kParseAndCopy{.name = "parse and copy",
                                       .run = parseAndCopy<Result, parse<Result>>,
                                       .needsTexts = true,
                                       .needsRecords = true};

template <class T, ReadText<T> read>
constexpr Method<ResourceMap<T>> textMethod(const char* name) {
    return {.name = name, .run = readText<T, read>, .needsTexts = true};
}

template <class Result>
void addRows(std::vector<Row>& rows, const std::string& name, Group<Result> cases,
             const std::vector<Method<Result>>& methods) {
    const auto group = std::make_shared<Group<Result>>(std::move(cases));
    for (const Method<Result>& method : methods) {
        Row& row = rows.emplace_back();
        row.name = name + ":" + method.name;
        row.measure = [group, method](Meter& meter) { group->measure(method, meter); };
        if (method.makesRecords)
            row.isCorrect = [group, method] { return group->isCorrect(method); };
    }
}

template <class T, ReadText<T> readWithLibrary>
void addTextRows(std::vector<Row>& rows, const std::string& name, const Corpus& corpus,
                 std::vector<ProductText> (Corpus::*loadTexts)() const) {
    using Result = ResourceMap<T>;
    constexpr auto library = textMethod<T, readWithLibrary>("library");
    const auto load = [&corpus, loadTexts](std::vector<Case<Result>>& cases) {
        for (ProductText& text : (corpus.*loadTexts)())
            cases.push_back({corpus, {}, text.product, {std::move(text.text)}});
    };
    addRows<Result>(rows, name, {"de", corpus, {}, load, library},
                    {kParse<Result>,
                     kParseAndCopy<Result>,
                     {.name = "shared parse",
                      .run = sharedParse<Result>,
                      .needsTexts = true,
                      .makesRecords = false},
                     {.name = "shared parse and copy",
                      .run = parseAndCopy<Result, sharedParse<Result>>,
                      .needsTexts = true,
                      .needsRecords = true},
                     library,
                     textMethod<T, readWithSimdjson<T>>("simdjson"),
                     textMethod<T, readWithRapidJson<T>>("RapidJSON"),
                     textMethod<T, readWithNlohmann<T>>("nlohmann")});
}

// The languages of the files that a retrieval reads.
std::vector<std::string> languagesOf(const Case<Resources>& work) {
    return work.language == "en" ? std::vector{work.language}
                                 : std::vector<std::string>{"en", work.language};
}

void addProductRows(std::vector<Row>& rows, const Corpus& corpus, const std::string& language) {
    std::vector<Case<Resources>> cases;
    for (const std::u16string& product : corpus.products())
        cases.push_back({corpus, language, product});
    const auto load = [](std::vector<Case<Resources>>& unread) {
        for (Case<Resources>& work : unread)
            work.texts = work.corpus.fullTexts(work.product, languagesOf(work));
    };
    const Method<Resources> library{.name = "library", .run = getProduct};
    addRows<Resources>(
        rows, "full/" + language, {language, corpus, std::move(cases), load, library},
        {{.name = "read", .run = readProduct<readNothing<RefItem>>, .makesRecords = false},
         kParse<Resources>,
         kParseAndCopy<Resources>,
         library,
         {.name = "simdjson", .run = readProduct<readWithSimdjson<RefItem>>},
         {.name = "RapidJSON", .run = readProduct<readWithRapidJson<RefItem>>}});
}

void addIndexRows(std::vector<Row>& rows, const Corpus& corpus, const std::string& language) {
    const auto load = [](std::vector<Case<LookupResults>>& cases) {
        for (ProductText& text : cases.front().corpus.lookupTexts())
            cases.front().texts.push_back(std::move(text.text));
    };
    const Method<LookupResults> library{.name = "library", .run = getIndex};
    addRows<LookupResults>(
        rows, "lookup/" + language, {language, corpus, {{corpus, language, {}}}, load, library},
        {{.name = "read", .run = readIndexWith<readNothing<RefItemLookup>>, .makesRecords = false},
         kParse<LookupResults>,
         kParseAndCopy<LookupResults>,
         library,
         {.name = "simdjson", .run = readIndexWith<readWithSimdjson<RefItemLookup>>},
         {.name = "RapidJSON", .run = readIndexWith<readWithRapidJson<RefItemLookup>>}});
}

} // namespace

std::vector<Row> makeRows(const Corpus& corpus) {
    std::vector<Row> rows;
    addTextRows<RefItem, readFullText>(rows, "full/text", corpus, &Corpus::allFullTexts);
    addTextRows<RefItemLookup, readLookupText>(rows, "lookup/text", corpus, &Corpus::lookupTexts);
    for (const char* language : {"en", "de"}) {
        addProductRows(rows, corpus, language);
        addIndexRows(rows, corpus, language);
    }
    return rows;
}

} // namespace reference::docparser::benchmarks
