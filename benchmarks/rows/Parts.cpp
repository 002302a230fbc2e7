#include "benchmarks/rows/Group.hpp"
#include "benchmarks/rows/Readers.hpp"
#include "benchmarks/rows/Row.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/discovery/Locales.hpp"
#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/io/ResourceFileReader.hpp"
#include "docparser/io/ZipPackage.hpp"
#include "docparser/parsing/DocumentParser.hpp"
#include "docparser/retrieval/LookupMerge.hpp"
#include "platform/package/StorageSystem.hpp"

namespace reference::docparser::benchmarks {

using property::RefItem;
using property::RefItemLookup;

namespace {

constexpr const char* kLanguage = "de";

// A parsed document with the arena that it lies in.
struct Document {
    explicit Document(const ProductText& text)
        : product(text.product), root(parseDocument(text.text, arena)) {}

    std::u16string product;
    boost::json::monotonic_resource arena{1024};
    boost::json::value root;
};

using Documents = std::vector<std::unique_ptr<Document>>;

template <class T>
Documents parseAll(const Unit<T>& unit) {
    Documents documents;
    for (const ProductText& text : unit.texts)
        documents.push_back(std::make_unique<Document>(text));
    return documents;
}

// Records of the main section of each document, which is all that most files have.
template <class T>
std::vector<DocResource<T>> buildAll(const Documents& documents, SectionParser<T> parseSection) {
    std::vector<DocResource<T>> sections;
    for (const std::unique_ptr<Document>& document : documents)
        sections.push_back(parseSection(document->root, document->product));
    return sections;
}

std::vector<Row> fullParts(const std::shared_ptr<const Corpus>& corpus) {
    using Result = ResourceMap<RefItem>;
    const auto load = [corpus] {
        std::vector<Unit<Result>> units;
        for (const std::u16string& product : corpus->products()) {
            std::vector<ProductText> texts = corpus->fullTexts(product, "en");
            const std::size_t bytes = bytesOf(texts);
            units.push_back({product, std::move(texts), bytes});
        }
        return units;
    };
    const auto fileOf = [corpus](const Unit<Result>& unit) {
        return (corpus->fullFolder() / unit.product).concat(".json").u16string();
    };
    const auto readOnly = [](const Unit<Result>&, const std::u16string& file) {
        return openAndReadFile(file, unobserved);
    };
    const auto whole = [](const Unit<Result>& unit, const std::u16string& file) {
        return readFullText(openAndReadFile(file, unobserved), unit.product);
    };
    const Group<Result> group("full/parts", load, [fileOf, whole](const Unit<Result>& unit) {
        return whole(unit, fileOf(unit));
    });

    return {group.floor("read", fileOf, readOnly), group.parseFloors().front(),
            group.floor("build", parseAll<Result>,
                        [](const Unit<Result>&, const Documents& documents) {
                            return buildAll<RefItem>(documents, parseRefItemSection);
                        }),
            group.row("whole", fileOf, whole)};
}

using LookupUnit = Unit<LookupResults>;

// What a retrieval finds in the lookup folder.
ProductLists walk(const Corpus& corpus) {
    return findProducts(corpus.lookupFolder().u16string(), getSupportedDocLocales(),
                        makeLocaleSuffix(getCurrentLocale()), unobserved);
}

std::size_t readFolderProducts(const LookupUnit&, const ProductLists& products) {
    std::size_t bytes = 0;
    for (const ProductPathData& product : products.jsonProducts)
        bytes += openAndReadFile(product, unobserved).size();
    return bytes;
}

std::size_t inflatePackages(const LookupUnit&, const ProductLists& products) {
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    std::size_t bytes = 0;
    for (const ProductPathData& zipFile : products.zipProducts) {
        ZipPackage package(zipFile.getFullPath(), selector);
        for (const ProductZipData& product :
             package.findProducts(zipFile.isNonEnglishLocale(), getSupportedDocLocales(),
                                  makeLocaleSuffix(getCurrentLocale()), unobserved))
            bytes += openAndReadFile(product, unobserved).size();
    }
    return bytes;
}

LookupMap mergeAll(const LookupUnit&, std::vector<DocResource<RefItemLookup>> sections) {
    LookupMap result;
    for (DocResource<RefItemLookup>& section : sections) {
        std::u16string key = section.header.getHelpFolder();
        const auto [entry, isNew] = result.try_emplace(std::move(key), std::move(section));
        if (!isNew)
            mergeLookupItems(entry->second.items, section.items, unobserved);
    }
    return result;
}

std::vector<DocResource<RefItemLookup>> buildLookups(const LookupUnit&,
                                                     const Documents& documents) {
    return buildAll<RefItemLookup>(documents, parseRefItemLookupSection);
}

LookupResults retrieveWhole(const LookupUnit&, int) {
    return DocResourceParser::getResourceLookupFiles();
}

std::vector<Row> lookupParts(const std::shared_ptr<const Corpus>& corpus) {
    const auto load = [corpus] {
        std::vector<ProductText> texts = corpus->lookupTexts(kLanguage);
        const std::size_t bytes = bytesOf(texts);
        return std::vector<LookupUnit>{{{}, std::move(texts), bytes}};
    };
    const auto setLanguage = [corpus](const LookupUnit&) {
        corpus->setLanguage(kLanguage);
        return 0;
    };
    const auto list = [corpus, setLanguage](const LookupUnit& unit) {
        setLanguage(unit);
        return walk(*corpus);
    };
    const auto walkOnly = [corpus](const LookupUnit&, int) { return walk(*corpus); };
    const auto parseAndBuild = [](const LookupUnit& unit) {
        return buildLookups(unit, parseAll<LookupResults>(unit));
    };
    const auto reference = [](const LookupUnit& unit) { return retrieveWhole(unit, 0); };
    const Group<LookupResults> group("lookup/parts", load, reference);

    return {group.floor("walk", setLanguage, walkOnly),
            group.floor("read", list, readFolderProducts),
            group.floor("inflate", list, inflatePackages),
            group.parseFloors().front(),
            group.floor("build", parseAll<LookupResults>, buildLookups),
            group.floor("merge", parseAndBuild, mergeAll),
            group.row("whole", setLanguage, retrieveWhole)};
}

} // namespace

std::vector<Row> makePartRows(std::shared_ptr<const Corpus> corpus) {
    std::vector<Row> rows = fullParts(corpus);
    for (Row& row : lookupParts(corpus))
        rows.push_back(std::move(row));
    return rows;
}

} // namespace reference::docparser::benchmarks
