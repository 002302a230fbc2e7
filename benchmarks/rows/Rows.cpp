#include "benchmarks/rows/Group.hpp"
#include "benchmarks/rows/Readers.hpp"
#include "benchmarks/rows/Row.hpp"
#include "docparser/DocResourceParser.hpp"

#include <iterator>
#include <map>
#include <stdexcept>

namespace reference::docparser::benchmarks {

using property::RefItem;
using property::RefItemLookup;

namespace {

using Rows = std::vector<Row>;
using SharedCorpus = std::shared_ptr<const Corpus>;

void append(Rows& rows, Rows more) {
    rows.insert(rows.end(), std::make_move_iterator(more.begin()),
                std::make_move_iterator(more.end()));
}

template <class Result>
Unit<Result> makeUnit(std::u16string product, std::vector<ProductText> texts) {
    const std::size_t bytes = bytesOf(texts);
    return {std::move(product), std::move(texts), bytes};
}

// Each text to records.
template <class T>
Rows textRows(std::string name, std::function<std::vector<ProductText>()> loadTexts) {
    using Result = ResourceMap<T>;
    const auto load = [loadTexts = std::move(loadTexts)] {
        std::vector<Unit<Result>> units;
        for (ProductText& text : loadTexts())
            units.push_back(makeUnit<Result>(text.product, {std::move(text)}));
        return units;
    };
    const auto reference = [](const Unit<Result>& unit) {
        return kLibrary<T>.read(unit.texts.front().text, unit.product);
    };
    const Group<Result> group(std::move(name), load, reference);
    const auto copyText = [](const Unit<Result>& unit) { return copyOf(unit.texts.front()); };

    Rows rows = group.parseFloors();
    const auto add = [&](const TextReader<T>& reader) {
        rows.push_back(group.row(reader.name, copyText,
                                 [read = reader.read](const Unit<Result>& unit, ProductText text) {
                                     return read(std::move(text.text), unit.product);
                                 }));
    };
    add(kLibrary<T>);
    for (const TextReader<T>& peer : kPeers<T>)
        add(peer);
    return rows;
}

// The records of each product, from the root.
Rows productRows(const SharedCorpus& corpus, const std::string& language) {
    using Result = ResourceMap<RefItem>;
    const auto load = [corpus, language] {
        std::vector<Unit<Result>> units;
        for (const std::u16string& product : corpus->products())
            units.push_back(makeUnit<Result>(product, corpus->fullTexts(product, language)));
        return units;
    };
    const auto callLibrary = [](const Unit<Result>& unit) {
        return DocResourceParser::getResourceFile(unit.product);
    };
    const auto reference = [corpus, language, callLibrary](const Unit<Result>& unit) {
        corpus->setLanguage(language);
        return callLibrary(unit);
    };
    const Group<Result> group("full/" + language, load, reference);
    const auto retrieve = [corpus, language](ReadText<RefItem> read) {
        return [corpus, language, read = std::move(read)](const Unit<Result>& unit, int) {
            return retrieveProduct(corpus->fullFolder(), unit.product, language, read);
        };
    };
    const auto readNothing = [](std::string, const std::u16string&) { return Result(); };
    const auto setLanguage = [corpus, language](const Unit<Result>&) {
        corpus->setLanguage(language);
        return 0;
    };

    Rows rows = {group.floor("read", kNoInput, retrieve(readNothing))};
    append(rows, group.parseFloors());
    rows.push_back(group.row("library", setLanguage, [callLibrary](const Unit<Result>& unit, int) {
        return callLibrary(unit);
    }));
    for (const TextReader<RefItem>& peer : kPeers<RefItem>)
        rows.push_back(group.row(peer.name, kNoInput, retrieve(peer.read)));
    return rows;
}

// The lookup index of the root.
Rows indexRows(const SharedCorpus& corpus, const std::string& language) {
    using Result = LookupResults;
    const auto load = [corpus, language] {
        return std::vector<Unit<Result>>{makeUnit<Result>({}, corpus->lookupTexts(language))};
    };
    const auto reference = [corpus, language](const Unit<Result>&) {
        corpus->setLanguage(language);
        return DocResourceParser::getResourceLookupFiles();
    };
    const Group<Result> group("lookup/" + language, load, reference);
    const auto retrieve = [corpus, language](ReadText<RefItemLookup> read) {
        return [corpus, read = std::move(read),
                settings = corpus->lookupSettings(language)](const Unit<Result>&, int) {
            return retrieveLookups(corpus->lookupFolder(), settings, read);
        };
    };
    const auto readNothing = [](std::string, const std::u16string&) { return LookupMap(); };
    const auto setLanguage = [corpus, language](const Unit<Result>&) {
        corpus->setLanguage(language);
        return 0;
    };

    Rows rows = {group.floor("read", kNoInput, retrieve(readNothing))};
    append(rows, group.parseFloors());
    rows.push_back(group.row("library", setLanguage, [](const Unit<Result>&, int) {
        return DocResourceParser::getResourceLookupFiles();
    }));
    for (const TextReader<RefItemLookup>& peer : kPeers<RefItemLookup>)
        rows.push_back(group.row(peer.name, kNoInput, retrieve(peer.read)));
    return rows;
}

} // namespace

Rows makeRows(SharedCorpus corpus) {
    Rows rows = textRows<RefItem>("full/text", [corpus] { return corpus->fullTexts(); });
    append(rows,
           textRows<RefItemLookup>("lookup/text", [corpus] { return corpus->lookupTexts("de"); }));
    for (const char* language : {"en", "de"}) {
        append(rows, productRows(corpus, language));
        append(rows, indexRows(corpus, language));
    }
    return rows;
}

void requireEqualResults(const Rows& rows) {
    std::map<std::string, std::uint64_t> expected;
    for (const Row& row : rows) {
        if (!row.digest)
            continue;
        const std::uint64_t digest = row.digest();
        if (expected.try_emplace(row.group, digest).first->second != digest)
            throw std::runtime_error("other records than the rows above: " + row.group + " " +
                                     row.name);
    }
}

} // namespace reference::docparser::benchmarks
