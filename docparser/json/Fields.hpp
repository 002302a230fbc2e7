#pragma once

#include <cstddef>
#include <functional>
#include <tuple>

namespace reference::json {

/// One field of a record: its name and how to get its value.
/// \tparam Get  a pointer to a member, or a function that takes the record
template <class Get>
struct Field {
    const char* name;
    Get get;
};

template <class Get>
Field(const char*, Get) -> Field<Get>;

/// The fields of a record type, as a tuple of Field. Each such type has a specialisation:
///
///     template <>
///     inline constexpr auto kFields<Spot> =
///         std::tuple{Field{"line", &Spot::line}, Field{"column", &Spot::column}};
template <class Record>
inline constexpr std::nullptr_t kFields = nullptr;

/// Calls `visit(name, value)` for each field of a record, in the order of the table.
template <class Record, class Visit>
void visitFields(const Record& record, const Visit& visit) {
    std::apply(
        [&](const auto&... field) { (visit(field.name, std::invoke(field.get, record)), ...); },
        kFields<Record>);
}

} // namespace reference::json
