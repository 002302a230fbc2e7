#include "benchmarks/peers/Peers.hpp"
#include "benchmarks/peers/SharedParse.hpp"
#include "benchmarks/rows/Row.hpp"
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
    std::u16string product;          // whose records are wanted; empty for the lookup index
    Texts texts{};                   // what the call reads
    std::optional<Result> records{}; // what it returns
};

// One way to do the work.
template <class Result>
struct Method {
    const char* name = "";
    std::function<Result(const Case<Result>& work, Texts texts)> run{};
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
struct Group {
    std::string name;
    const Corpus& corpus;
    std::string language;
    std::vector<Case<Result>> cases{};                            // may be empty before `load`
    std::function<void(std::vector<Case<Result>>& cases)> load{}; // adds texts; called once
    Method<Result> library{};

    void measure(const Method<Result>& method, Meter& meter) {
        corpus.setLanguage(language);
        // Loading the lookup files runs code of the library, which must not precede a first call.
        if (method.needsTexts)
            loadTexts();
        for (Case<Result>& work : cases) {
            if (method.needsRecords)
                warm(recordsOf(work));
            meter.measure([&] { return method.needsTexts ? copyOf(work.texts) : Texts(); },
                          [&](Texts texts) { return method.run(work, std::move(texts)); });
        }
        loadTexts();
        for (const Case<Result>& work : cases) {
            for (const std::string& text : work.texts)
                meter.textBytes += text.size();
        }
    }

    bool isCorrect(const Method<Result>& method) {
        corpus.setLanguage(language);
        loadTexts();
        return std::ranges::all_of(cases, [&](Case<Result>& work) {
            return method.run(work, copyOf(work.texts)) == recordsOf(work);
        });
    }

    void loadTexts() {
        if (load)
            std::exchange(load, nullptr)(cases);
    }

    const Result& recordsOf(Case<Result>& work) {
        if (!work.records)
            work.records = library.run(work, copyOf(work.texts));
        return *work.records;
    }

    // A reader finds its document in the cache, so the records to copy have to be there too.
    static void warm(const Result& records) {
        if (!(records == records))
            throw std::logic_error("records that differ from themselves");
    }
};

template <class Result>
void addRows(std::vector<Row>& rows, Group<Result> cases,
             const std::vector<Method<Result>>& methods) {
    const auto group = std::make_shared<Group<Result>>(std::move(cases));
    for (const Method<Result>& method : methods) {
        Row& row = rows.emplace_back();
        row.name = group->name + ":" + method.name;
        row.measure = [group, method](Meter& meter) { group->measure(method, meter); };
        if (method.makesRecords)
            row.isCorrect = [group, method] { return group->isCorrect(method); };
    }
}

// Floors.

using Parse = void (*)(std::string_view text);

void parseWithLibrary(std::string_view text) {
    boost::json::monotonic_resource arena(1024);
    parseDocument(text, arena);
}

template <class Result>
Method<Result> parse(const char* name, Parse parseText) {
    return {.name = name,
            .run =
                [parseText](const Case<Result>&, const Texts& texts) {
                    std::ranges::for_each(texts, parseText);
                    return Result();
                },
            .needsTexts = true,
            .makesRecords = false};
}

template <class Result>
Method<Result> parseAndCopy(const char* name, Parse parseText) {
    return {.name = name,
            .run =
                [parseText](const Case<Result>& work, Texts texts) {
                    std::ranges::for_each(std::exchange(texts, {}), parseText);
                    return *work.records;
                },
            .needsTexts = true,
            .needsRecords = true};
}

// From text to records.

template <class T, SectionParser<T> parseSection>
ResourceMap<T> readWithLibrary(std::string text, const std::u16string& product) {
    return parseResourceText<T>(std::move(text), product, parseSection, unobserved);
}

template <class T>
Method<ResourceMap<T>> reader(const char* name, ReadText<T> readText) {
    return {
        .name = name,
        .run = [readText](const Case<ResourceMap<T>>& work,
                          Texts texts) { return readText(std::move(texts.front()), work.product); },
        .needsTexts = true};
}

// load(cases) adds the cases.
template <class T, SectionParser<T> parseSection, class Load>
void addTextRows(std::vector<Row>& rows, const std::string& name, const Corpus& corpus, Load load) {
    using Result = ResourceMap<T>;
    const auto library = reader<T>("library", readWithLibrary<T, parseSection>);
    addRows<Result>(rows, {name, corpus, "de", {}, load, library},
                    {parse<Result>("parse", parseWithLibrary),
                     parseAndCopy<Result>("parse and copy", parseWithLibrary),
                     parse<Result>("shared parse", parseWithSharedJson),
                     parseAndCopy<Result>("shared parse and copy", parseWithSharedJson), library,
                     reader<T>("simdjson", readWithSimdjson),
                     reader<T>("RapidJSON", readWithRapidJson),
                     reader<T>("nlohmann", readWithNlohmann)});
}

// From the root to records.

// retrieve(case, readText) does the work with any ReadText<T>.
template <class T, class Result, class Retrieve>
void addRetrievalRows(std::vector<Row>& rows, const Group<Result>& group, Retrieve retrieve) {
    const auto method = [retrieve](const char* name, ReadText<T> readText) {
        return Method<Result>{.name = name,
                              .run = [retrieve, readText](const Case<Result>& work, const Texts&) {
                                  return retrieve(work, readText);
                              }};
    };
    Method<Result> read =
        method("read", [](std::string, const std::u16string&) { return ResourceMap<T>(); });
    read.makesRecords = false;
    addRows<Result>(rows, group,
                    {read, parse<Result>("parse", parseWithLibrary),
                     parseAndCopy<Result>("parse and copy", parseWithLibrary), group.library,
                     method("simdjson", readWithSimdjson), method("RapidJSON", readWithRapidJson)});
}

void addProductRows(std::vector<Row>& rows, const Corpus& corpus, const std::string& language) {
    using Result = ResourceMap<RefItem>;
    Group<Result> group{.name = "full/" + language, .corpus = corpus, .language = language};
    for (const std::u16string& product : corpus.products())
        group.cases.push_back({product});
    std::vector<std::string> languages{"en"};
    if (language != "en")
        languages.push_back(language);
    group.load = [&corpus, languages](std::vector<Case<Result>>& cases) {
        for (Case<Result>& work : cases)
            work.texts = corpus.fullTexts(work.product, languages);
    };
    group.library = {.name = "library", .run = [](const Case<Result>& work, const Texts&) {
                         return DocResourceParser::getResourceFile(work.product);
                     }};
    addRetrievalRows<RefItem>(
        rows, group, [&corpus, language](const Case<Result>& work, ReadText<RefItem> readText) {
            return readProduct(corpus, work.product, language, readText);
        });
}

void addIndexRows(std::vector<Row>& rows, const Corpus& corpus, const std::string& language) {
    using Result = LookupResults;
    Group<Result> group{.name = "lookup/" + language, .corpus = corpus, .language = language};
    group.cases.resize(1);
    group.load = [&corpus](std::vector<Case<Result>>& cases) {
        for (auto& [product, text] : corpus.lookupTexts())
            cases.front().texts.push_back(std::move(text));
    };
    group.library = {.name = "library", .run = [](const Case<Result>&, const Texts&) {
                         return DocResourceParser::getResourceLookupFiles();
                     }};
    addRetrievalRows<RefItemLookup>(
        rows, group, [&corpus, language](const Case<Result>&, ReadText<RefItemLookup> readText) {
            return readIndex(corpus, language, readText);
        });
}

} // namespace

std::vector<Row> makeRows(const Corpus& corpus) {
    std::vector<Row> rows;
    addTextRows<RefItem, parseRefItemSection>(rows, "full/text", corpus, [&corpus](auto& cases) {
        for (const std::u16string& product : corpus.products()) {
            for (std::string& text : corpus.fullTexts(product, corpus.languages()))
                cases.push_back({product, {std::move(text)}});
        }
    });
    addTextRows<RefItemLookup, parseRefItemLookupSection>(
        rows, "lookup/text", corpus, [&corpus](auto& cases) {
            for (auto& [product, text] : corpus.lookupTexts())
                cases.push_back({product, {std::move(text)}});
        });
    for (const char* language : {"en", "de"}) {
        addProductRows(rows, corpus, language);
        addIndexRows(rows, corpus, language);
    }
    return rows;
}

} // namespace reference::docparser::benchmarks
