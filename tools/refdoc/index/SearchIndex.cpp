#include "tools/refdoc/index/SearchIndex.hpp"

#include "tools/refdoc/index/BestRecords.hpp"
#include "tools/refdoc/index/IndexedRecords.hpp"
#include "tools/refdoc/index/NameTables.hpp"
#include "tools/refdoc/index/RecordRows.hpp"
#include "tools/refdoc/index/WordLists.hpp"
#include "tools/refdoc/index/words/RecordWords.hpp"
#include "tools/refdoc/index/words/WordEnds.hpp"

#include <fmt/format.h>

#include <future>
#include <string_view>
#include <vector>

namespace refdoc::site {

namespace {

// Writes the rows of all records. Returns the numbers of the records.
std::vector<std::uint32_t> writeRows(const IndexedRecords& records, const FindPage& findPage,
                                     const AddFile& addFile) {
    RecordRows rows(addFile);
    std::vector<std::uint32_t> numbers;
    numbers.reserve(records.size());
    for (std::size_t record = 0; record < records.size(); ++record)
        numbers.push_back(rows.add(records[record], findPage(records[record])));
    rows.finish();
    return numbers;
}

std::string writeBest(const WordEnds& ends, const std::vector<std::size_t>& partStarts,
                      const IndexedRecords& records, const std::vector<std::uint32_t>& numbers,
                      const AddFile& addFile) {
    IndexTable table("best", kLargestPart, addFile);
    std::string row;
    for (const auto& [text, best] : findBestTexts(ends, partStarts, records)) {
        row.clear();
        for (std::size_t at = 0; at < best.size(); ++at)
            appendNumber(numbers[best[at]], row);
        table.add(text, row);
    }
    return table.finish();
}

// Returns the first numbers of the classes of records, up to the last class that has any.
std::vector<std::uint32_t> classNumbers(const IndexedRecords& records,
                                        const std::vector<std::uint32_t>& numbers) {
    std::vector<std::uint32_t> result;
    for (const std::size_t start : records.classStarts()) {
        if (start < records.size())
            result.push_back(numbers[start]);
    }
    return result;
}

} // namespace

void makeSearchIndex(const reference::docparser::LookupIndex& index, const FindPage& findPage,
                     const AddFile& addFile) {
    const IndexedRecords records(index);
    // Another thread makes what needs no words, if the system allows one.
    std::future<std::vector<std::uint32_t>> rows =
        std::async([&] { return writeRows(records, findPage, addFile); });
    RecordWords recordWords;
    NameTables nameTables;
    IndexedRecords::Fields fields;
    for (std::uint32_t record = 0; record < records.size(); ++record) {
        records.foldFields(record, fields);
        for (const SearchField field : kFields)
            recordWords.add(fields[static_cast<std::size_t>(field)], record, field);
        nameTables.add(fields[0], record);
    }
    const std::vector<std::uint32_t> numbers = rows.get();
    std::future<NameDirectories> nameDirectories =
        std::async([&] { return nameTables.write(numbers, addFile); });
    std::future<std::string> phrases =
        std::async([&] { return writePhrases(recordWords.phrases(), numbers, addFile); });
    const WordEnds ends(recordWords.words());
    const WordList list = writeWordList(ends, recordWords.words(), numbers, addFile);
    const std::string best = writeBest(ends, list.partStarts, records, numbers, addFile);
    const auto [names, reversedNames] = nameDirectories.get();
    addPart(addFile, "start",
            fmt::format(R"({{"list":{},"best":{},"phrase":{},"name":{},"eman":{},)"
                        R"("classes":[{}]}})",
                        list.directories, best, phrases.get(), names, reversedNames,
                        fmt::join(classNumbers(records, numbers), ",")));
}

} // namespace refdoc::site
