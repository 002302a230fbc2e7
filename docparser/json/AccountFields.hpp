#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "docparser/json/Fields.hpp"

namespace reference::json {

// The fields of a load account, in the order of their declarations.

template <>
inline constexpr auto kFields<docparser::TextPlace> =
    std::tuple{Field{"offset", &docparser::TextPlace::offset},
               Field{"line", &docparser::TextPlace::line},
               Field{"column", &docparser::TextPlace::column}};

template <>
inline constexpr auto kFields<docparser::RecordAccount> = std::tuple{
    Field{"name", &docparser::RecordAccount::name}, Field{"href", &docparser::RecordAccount::href},
    Field{"fate", &docparser::RecordAccount::fate}, Field{"file", &docparser::RecordAccount::file},
    Field{"winner", &docparser::RecordAccount::winner}};

template <>
inline constexpr auto kFields<docparser::SectionAccount> =
    std::tuple{Field{"key", &docparser::SectionAccount::key},
               Field{"pointer", &docparser::SectionAccount::pointer},
               Field{"fate", &docparser::SectionAccount::fate},
               Field{"isInstalled", &docparser::SectionAccount::isInstalled},
               Field{"other", &docparser::SectionAccount::other},
               Field{"records", &docparser::SectionAccount::records}};

template <>
inline constexpr auto kFields<docparser::FileAccount> =
    std::tuple{Field{"role", &docparser::FileAccount::role},
               Field{"path", &docparser::FileAccount::path},
               Field{"entry", &docparser::FileAccount::entry},
               Field{"isTranslation", &docparser::FileAccount::isTranslation},
               Field{"fate", &docparser::FileAccount::fate},
               Field{"reason", &docparser::FileAccount::reason},
               Field{"pointer", &docparser::FileAccount::pointer},
               Field{"place", &docparser::FileAccount::place},
               Field{"sections", &docparser::FileAccount::sections}};

template <>
inline constexpr auto kFields<docparser::LoadAccount> =
    std::tuple{Field{"files", &docparser::LoadAccount::files},
               Field{"isComplete", &docparser::LoadAccount::isComplete}};

} // namespace reference::json
