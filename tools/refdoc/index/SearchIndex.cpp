#include "tools/refdoc/index/SearchIndex.hpp"

#include "tools/refdoc/index/BestRecords.hpp"
#include "tools/refdoc/index/IndexedRecords.hpp"
#include "tools/refdoc/index/NameTables.hpp"
#include "tools/refdoc/index/RecordRows.hpp"
#include "tools/refdoc/index/WordLists.hpp"
#include "tools/refdoc/index/words/RecordWords.hpp"
#include "tools/refdoc/index/words/WordEnds.hpp"

#include <fmt/format.h>

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
    const std::vector<std::uint32_t> numbers = writeRows(records, findPage, addFile);

    NameTables nameTables;
    RecordWords recordWords;
    IndexedRecords::Fields fields;
    for (std::uint32_t record = 0; record < records.size(); ++record) {
        records.foldFields(record, fields);
        for (const SearchField field : kFields)
            recordWords.add(fields[static_cast<std::size_t>(field)], record, field);
        nameTables.add(fields[0], numbers[record]);
    }
    const std::string names = nameTables.writeNames(addFile);
    const std::string reversedNames = nameTables.writeReversedNames(addFile);
    const std::string phrases = writePhrases(recordWords.phrases(), numbers, addFile);
    const WordEnds ends(recordWords.words());
    const WordList list = writeWordList(ends, recordWords.words(), numbers, addFile);
    const std::string best = writeBest(ends, list.partStarts, records, numbers, addFile);
    addPart(addFile, "start",
            fmt::format(R"({{"list":{},"best":{},"phrase":{},"name":{},"eman":{},)"
                        R"("classes":[{}]}})",
                        list.directories, best, phrases, names, reversedNames,
                        fmt::join(classNumbers(records, numbers), ",")));
}

} // namespace refdoc::site
