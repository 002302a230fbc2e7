#include "tools/refdoc/check/ContentCheck.hpp"

#include "tools/refdoc/check/schema/SchemaWalker.hpp"

#include <boost/json/error.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <fmt/format.h>

#include <string_view>
#include <utility>

namespace refdoc::check {

namespace json = boost::json;

using reference::docparser::Fate;
using reference::docparser::FileAccount;

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

Finding noJson(const FileAccount& account, const SourceFile& file, std::string_view text,
               const json::error_code& error) {
    Finding finding{.rule = RuleId::MalformedJson,
                    .spot = {.file = file, .place = account.place},
                    .message =
                        fmt::format("invalid JSON: {}; the whole file is dropped", account.reason)};
    if (text.starts_with(kByteOrderMark)) {
        finding.rule = RuleId::ByteOrderMark;
        finding.message = "the text begins with a byte-order mark; the whole file is dropped";
    } else if (error == json::error::too_deep) {
        finding.rule = RuleId::NestingTooDeep;
        finding.message = "the nesting is too deep from here on; the whole file is dropped";
    }
    return finding;
}

bool dropsFile(const ContentFinding& finding) {
    return finding.rule == RuleId::MissingKey || finding.rule == RuleId::WrongKind;
}

// Adds what the schema does not foresee; tells whether it is the reason to drop the file.
bool addContentFindings(const FileAccount& account, const SourceFile& file,
                        const json::value& document, std::vector<Finding>& findings) {
    const Schema& schema = account.role == FileRole::Lookup ? lookupSchema() : resourceSchema();
    bool isDropped = false;
    for (ContentFinding& found : walkDocument(schema, document)) {
        isDropped |= dropsFile(found);
        findings.push_back(
            {found.rule,
             {.file = file, .pointer = std::move(found.pointer), .isAtKey = found.isAtKey},
             std::move(found.message),
             std::move(found.identity)});
    }
    return isDropped;
}

} // namespace

void checkContent(const FileAccount& account, const SourceFile& file, SourceTexts& texts,
                  Questions& questions, std::vector<Finding>& findings) {
    const std::string text = texts.read(file);
    json::monotonic_resource arena;
    json::error_code error;
    const json::value document = json::parse(text, error, &arena);
    if (error) {
        findings.push_back(noJson(account, file, text, error));
        return;
    }
    const bool isDropped = addContentFindings(account, file, document, findings);
    if (account.fate != Fate::Malformed)
        questions.answer(file, account.role, account.sections, document, findings);
    else if (!isDropped)
        findings.push_back({RuleId::WrongKind,
                            {.file = file, .pointer = account.pointer, .place = account.place},
                            fmt::format("{}; the whole file is dropped", account.reason)});
}

} // namespace refdoc::check
