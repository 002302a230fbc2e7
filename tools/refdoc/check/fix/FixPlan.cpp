#include "tools/refdoc/check/fix/FixPlan.hpp"

#include "platform/i18n/Converter.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <system_error>
#include <utility>

namespace refdoc::check {

namespace fs = std::filesystem;

using fl::i18n::to_ustring;

namespace {

// The folders of a reference root, and the one of an install folder that has it.
constexpr std::array<std::string_view, 4> kRootFolders = {"help", "docCatalog", "referenceapi",
                                                          "referenceapi_lookup"};

std::size_t offsetOf(const Edit& edit) {
    return edit.location.position->offset;
}

// Returns the link that leads to a file within its reference root; empty if there is none. The user
// has named the folders above the root.
fs::path linkTo(fs::path file) {
    do {
        std::error_code error;
        if (fs::is_symlink(file, error))
            return file;
        file = file.parent_path();
    } while (std::ranges::find(kRootFolders, file.filename()) != kRootFolders.end());
    return {};
}

// What the fixes of a report want to do with one file.
struct Request {
    fs::path file;
    fs::path newFile{};
    std::vector<Edit> edits{};
    std::size_t fixCount = 0;
};

class Planner {
public:
    explicit Planner(const PathNames& names) : names_(names) {}

    void add(const ReportedFinding& finding) {
        if (!finding.fix)
            return;
        const SourceFile& source = finding.location.file->source;
        if (!source.entry.empty()) {
            ++plan_.packagedCount;
            return;
        }
        const std::string& name = names_.pathOf(source);
        const fs::path file = names_.base() / fs::path(to_ustring(name));
        Request& request =
            requests_.try_emplace(name, Request{.file = file, .newFile = file}).first->second;
        const auto& [edits, newName] = *finding.fix;
        request.edits.insert(request.edits.end(), edits.begin(), edits.end());
        if (newName)
            request.newFile = file.parent_path() / fs::path(*newName);
        ++request.fixCount;
    }

    FixPlan plan() {
        for (const auto& [name, request] : requests_) {
            if (request.newFile != request.file)
                ++takers_[request.newFile];
        }
        for (auto& [name, request] : requests_)
            plan(name, request);
        return std::move(plan_);
    }

private:
    void plan(const std::string& name, Request& request) {
        if (const fs::path link = linkTo(request.file); !link.empty())
            return refuse("change", name,
                          fmt::format("\"{}\" is a symbolic link",
                                      names_.pathOf({.path = link.u16string()})));
        if (!fs::is_regular_file(request.file))
            return refuse("change", name, "it is not a regular file");
        std::string before;
        if (!request.edits.empty())
            before = texts_.read({.path = request.file.u16string()});
        std::optional<std::string> after = edited(before, std::move(request.edits));
        if (!after)
            return refuse("change", name, "it has changed since it was checked");
        if (request.newFile != request.file && isTaken(request.newFile)) {
            refuse("rename", name,
                   fmt::format("another file has or would get the name \"{}\"",
                               fl::i18n::to_string(request.newFile.filename().u16string())));
            if (*after == before)
                return;
            --request.fixCount;
            request.newFile = request.file;
        }
        plan_.changes.push_back({.file = request.file,
                                 .newFile = request.newFile,
                                 .before = std::move(before),
                                 .after = std::move(*after),
                                 .fixCount = request.fixCount});
    }

    void refuse(std::string_view action, const std::string& name, const std::string& reason) {
        plan_.refusals.push_back(fmt::format("can't {} \"{}\": {}", action, name, reason));
    }

    // Compares exact names: where letter case does not matter, a file that gets another case exists
    // under its new name already.
    bool isTaken(const fs::path& file) {
        const auto [folder, isNew] = folders_.try_emplace(file.parent_path());
        if (isNew) {
            for (const fs::directory_entry& entry : fs::directory_iterator(folder->first))
                folder->second.insert(entry.path().filename());
        }
        return takers_.at(file) > 1 || folder->second.contains(file.filename());
    }

    const PathNames& names_;
    SourceTexts texts_;
    std::map<std::string, Request> requests_;        // by the name of the file in messages
    std::map<fs::path, std::size_t> takers_;         // how many files would get a name
    std::map<fs::path, std::set<fs::path>> folders_; // the names in folders with renamed files
    FixPlan plan_;
};

} // namespace

FixPlan planFixes(const std::vector<ReportedFinding>& findings, const PathNames& names) {
    Planner planner(names);
    for (const ReportedFinding& finding : findings)
        planner.add(finding);
    return planner.plan();
}

std::optional<std::string> edited(std::string_view text, std::vector<Edit> edits) {
    std::ranges::sort(edits, {}, offsetOf);
    const auto isRepeated = [](const Edit& left, const Edit& right) {
        return offsetOf(left) == offsetOf(right);
    };
    edits.erase(std::unique(edits.begin(), edits.end(), isRepeated), edits.end());
    std::string result;
    std::size_t done = 0;
    for (const Edit& edit : edits) {
        const std::size_t offset = offsetOf(edit);
        if (offset < done || offset > text.size() ||
            !text.substr(offset).starts_with(edit.original))
            return std::nullopt;
        result.append(text.substr(done, offset - done)).append(edit.replacement);
        done = offset + edit.original.size();
    }
    return result.append(text.substr(done));
}

} // namespace refdoc::check
