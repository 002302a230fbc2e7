#include "tools/refdoc/check/fix/FixRun.hpp"

#include "tools/refdoc/check/fix/FixPlan.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <set>
#include <utility>

namespace refdoc::check {

namespace {

class FixRun {
public:
    FixRun(const FixHost& host, const PathNames& names, FixMode mode, DiffStyle style)
        : host_(host), names_(names), mode_(mode), style_(style) {}

    Answer run() {
        bool isDone = false;
        while (!isDone) {
            checked_ = host_.check();
            plan_ = planFixes(checked_.findings, names_);
            failures_.clear();
            const auto made = std::ranges::count_if(
                plan_.changes, [this](const FileChange& change) { return make(change); });
            isDone = mode_ == FixMode::Show || made == 0;
        }
        return answer();
    }

private:
    // Returns whether the change is in the diff.
    bool make(const FileChange& change) {
        const std::string name = nameOf(change.file);
        if (mode_ == FixMode::Write) {
            try {
                write(change);
            } catch (const std::filesystem::filesystem_error& error) {
                failures_.push_back(
                    fmt::format("can't write \"{}\": {}", name, error.code().message()));
                return false;
            }
            host_.onWritten(change);
        }
        diff_ += unifiedDiff({.oldName = name,
                              .newName = nameOf(change.newFile),
                              .before = change.before,
                              .after = change.after},
                             style_);
        fixCount_ += change.fixCount;
        files_.erase(change.file);
        files_.insert(change.newFile);
        return true;
    }

    std::string nameOf(const std::filesystem::path& file) const {
        return names_.pathOf({.path = file.u16string()});
    }

    Answer answer() {
        const std::size_t errors = checked_.summary.errors;
        const bool isComplete = checked_.complaints.empty() && failures_.empty();
        std::vector<std::string> complaints = std::move(checked_.complaints);
        std::ranges::move(failures_, std::back_inserter(complaints));
        std::ranges::move(plan_.refusals, std::back_inserter(complaints));
        if (plan_.packagedCount > 0)
            complaints.push_back(fmt::format("{} in packages must be fixed by hand: packages are "
                                             "not rewritten",
                                             counted(plan_.packagedCount, "finding")));
        complaints.push_back(result());
        if (errors > 0)
            complaints.push_back(fmt::format("refdoc check {}finds {}",
                                             mode_ == FixMode::Write ? "still " : "",
                                             counted(errors, "error")));
        return {.status = !isComplete  ? ExitStatus::Failed
                          : errors > 0 ? ExitStatus::Negative
                                       : ExitStatus::Success,
                .output = std::move(diff_),
                .complaints = std::move(complaints)};
    }

    std::string result() const {
        if (fixCount_ == 0)
            return "nothing to fix";
        const std::string made =
            fmt::format("{} in {}", counted(fixCount_, "finding"), counted(files_.size(), "file"));
        return mode_ == FixMode::Write ? "fixed " + made
                                       : made + " can be fixed; --write changes the files";
    }

    const FixHost& host_;
    const PathNames& names_;
    FixMode mode_;
    DiffStyle style_;
    CheckedFiles checked_;
    FixPlan plan_;
    std::vector<std::string> failures_; // of the last pass, which has all of them
    std::string diff_;
    std::size_t fixCount_ = 0;
    std::set<std::filesystem::path> files_; // that the diff changes, by their new names
};

} // namespace

Answer fixFindings(const FixHost& host, const PathNames& names, FixMode mode, DiffStyle style) {
    return FixRun(host, names, mode, style).run();
}

} // namespace refdoc::check
