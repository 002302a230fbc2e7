#include "tests/support/Schema.hpp"

#include <boost/json/parse.hpp>
#include <valijson/adapters/boost_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <fstream>
#include <iterator>

namespace docparser_tests {

namespace json = boost::json;
using valijson::adapters::BoostJsonAdapter;

struct Schema::Parsed {
    valijson::Schema schema;
};

Schema::Schema(const std::string& name, const std::string& definition)
    : text_(readJson(std::filesystem::path(SCHEMA_FOLDER) / name)) {
    if (!definition.empty())
        text_.at("oneOf") = json::array{{{"$ref", "#/definitions/" + definition}}};
    auto parsed = std::make_unique<Parsed>();
    valijson::SchemaParser(valijson::SchemaParser::kDraft7)
        .populateSchema(BoostJsonAdapter(text_), parsed->schema);
    parsed_ = std::move(parsed);
}

Schema::~Schema() = default;

std::string Schema::problemsOf(const json::value& document) const {
    valijson::Validator validator;
    valijson::ValidationResults results;
    validator.validate(parsed_->schema, BoostJsonAdapter(document), &results);
    std::string problems;
    for (const valijson::ValidationResults::Error& error : results) {
        for (const std::string& step : error.context)
            problems += step;
        problems += ": " + error.description + '\n';
    }
    return problems;
}

bool Schema::accepts(const json::value& document) const {
    valijson::Validator validator;
    return validator.validate(parsed_->schema, BoostJsonAdapter(document), nullptr);
}

json::value readJson(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return json::parse(text);
}

} // namespace docparser_tests
