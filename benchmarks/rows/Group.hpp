#pragma once

#include "benchmarks/harness/Digest.hpp"
#include "benchmarks/rows/Floors.hpp"
#include "benchmarks/rows/Row.hpp"
#include "benchmarks/rows/SharedParse.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace reference::docparser::benchmarks {

/// One call's worth of a group's work.
/// \tparam Result  what the call returns
template <class Result>
struct Unit {
    std::u16string product;         ///< whose records are asked for; empty for all products
    std::vector<ProductText> texts; ///< what the call reads, for the floors
    std::size_t bytes;              ///< of the texts
};

/// The calls of a group of rows; the texts are read when they are first asked for.
template <class Result>
class Group {
public:
    using Units = std::vector<Unit<Result>>;
    using Reference = std::function<Result(const Unit<Result>&)>;

    /// \param load       makes the units
    /// \param reference  the library's result for a unit, for what copies it
    Group(std::string name, std::function<Units()> load, Reference reference)
        : name_(std::move(name)),
          state_(std::make_shared<State>(State{std::move(load), std::move(reference), {}, {}})) {}

    /// A row that makes records.
    /// \param makeInput  makeInput(unit) is made before the clock starts
    /// \param call       call(unit, input) returns the unit's records
    template <class MakeInput, class Call>
    Row row(std::string rowName, MakeInput makeInput, Call call) const {
        Row row = floor(std::move(rowName), makeInput, call);
        row.digest = [state = state_, makeInput, call] {
            std::uint64_t sum = 0;
            for (const Unit<Result>& unit : state->loadedUnits())
                sum = sum * 31 + digest(call(unit, makeInput(unit)));
            return sum;
        };
        return row;
    }

    /// A row that makes no records.
    template <class MakeInput, class Call>
    Row floor(std::string rowName, MakeInput makeInput, Call call) const {
        const auto pass = [state = state_, makeInput, call](Meter& meter) {
            for (const Unit<Result>& unit : state->loadedUnits())
                meter.measure(
                    unit.bytes, [&] { return makeInput(unit); },
                    [&](auto input) { return call(unit, std::move(input)); });
        };
        return {name_, std::move(rowName), pass, {}};
    }

    /// The floors "parse" and "parse and copy", then the same with the system's shared Boost.JSON.
    std::vector<Row> parseFloors() const {
        std::vector<Row> rows = parseFloors("parse", parseOnly);
        for (Row& row : parseFloors("shared parse", parseWithSharedJson))
            rows.push_back(std::move(row));
        return rows;
    }

private:
    using ParseText = std::size_t (*)(std::string_view text);

    std::vector<Row> parseFloors(const std::string& rowName, ParseText parseText) const {
        const auto copyTexts = [](const Unit<Result>& unit) { return copyOf(unit.texts); };
        const auto parse = [parseText](const Unit<Result>&, std::vector<ProductText> texts) {
            std::size_t documents = 0;
            for (const ProductText& text : texts)
                documents += parseText(text.text);
            return documents;
        };
        // A reader finds its document in the cache, so the records to copy have to be there, too.
        const auto touchRecords = [state = state_, copyTexts](const Unit<Result>& unit) {
            digest(state->finishedRecords(unit));
            return copyTexts(unit);
        };
        const auto parseAndCopy = [state = state_, parse](const Unit<Result>& unit,
                                                          std::vector<ProductText> texts) {
            parse(unit, std::move(texts));
            return Result(state->finishedRecords(unit));
        };
        return {floor(rowName, copyTexts, parse),
                row(rowName + " and copy", touchRecords, parseAndCopy)};
    }

    struct State {
        std::function<Units()> load;
        Reference reference;
        Units units;
        std::vector<Result> finished;

        const Units& loadedUnits() {
            if (units.empty())
                units = load();
            return units;
        }

        const Result& finishedRecords(const Unit<Result>& unit) {
            if (finished.empty()) {
                for (const Unit<Result>& each : units)
                    finished.push_back(reference(each));
            }
            return finished[static_cast<std::size_t>(&unit - units.data())];
        }
    };

    std::string name_;
    std::shared_ptr<State> state_;
};

/// For rows whose calls start from nothing but the unit.
inline constexpr auto kNoInput = [](const auto&) { return 0; };

} // namespace reference::docparser::benchmarks
