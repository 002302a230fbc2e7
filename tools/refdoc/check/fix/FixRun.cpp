#include "tools/refdoc/check/fix/FixRun.hpp"

#include "tools/refdoc/check/fix/FixPlan.hpp"
#include "tools/refdoc/check/report/FindingLines.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <map>
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
            const auto madeCount = std::ranges::count_if(
                plan_.changes, [this](FileChange& change) { return make(std::move(change)); });
            isDone = mode_ == FixMode::Show || madeCount == 0;
        }
        return answer();
    }

private:
    // Returns whether the change has been made or, if it is only shown, would be made.
    bool make(FileChange change) {
        if (isRepeated(change)) {
            failures_.push_back(
                fmt::format("can't rename \"{}\": it keeps its name", nameOf(change.file)));
            return false;
        }
        if (mode_ == FixMode::Write) {
            try {
                write(change);
            } catch (const std::filesystem::filesystem_error& error) {
                failures_.push_back(fmt::format("can't write \"{}\": {}", nameOf(change.file),
                                                error.code().message()));
                return false;
            }
            host_.onWritten(change);
        }
        record(std::move(change));
        return true;
    }

    // Returns whether an earlier pass has renamed the file in the same way, without effect.
    bool isRepeated(const FileChange& change) const {
        const auto earlier = made_.find(change.newFile);
        return change.newFile != change.file && earlier != made_.end() &&
               earlier->second.file == change.file;
    }

    // Combines the change with an earlier one of the same file, so that one diff shows both.
    void record(FileChange change) {
        if (auto node = made_.extract(change.file)) {
            FileChange& earlier = node.mapped();
            change.file = std::move(earlier.file);
            change.fixCount += earlier.fixCount;
            if (change.before.empty())
                change.after = std::move(earlier.after);
            if (!earlier.before.empty())
                change.before = std::move(earlier.before);
        }
        std::filesystem::path key = change.newFile;
        made_.insert_or_assign(std::move(key), std::move(change));
    }

    std::string diff() const {
        std::string diff;
        for (const auto& [file, change] : made_)
            diff += unifiedDiff({.oldName = nameOf(change.file),
                                 .newName = nameOf(change.newFile),
                                 .before = change.before,
                                 .after = change.after},
                                style_);
        return diff;
    }

    std::string nameOf(const std::filesystem::path& file) const {
        return names_.pathOf({.path = file.u16string()});
    }

    Answer answer() {
        const std::size_t errors = checked_.summary.errors;
        const bool isComplete = checked_.complaints.empty() && failures_.empty();
        std::vector<std::string> complaints = std::move(checked_.complaints);
        std::ranges::move(checked_.notes, std::back_inserter(complaints));
        std::ranges::move(failures_, std::back_inserter(complaints));
        std::ranges::move(plan_.refusals, std::back_inserter(complaints));
        if (plan_.packagedCount > 0)
            complaints.push_back(fmt::format("{} in packages must be fixed by hand: packages are "
                                             "not rewritten",
                                             counted(plan_.packagedCount, "finding")));
        complaints.push_back(result());
        if (errors > 0)
            complaints.push_back(fmt::format("{} {}; see refdoc check", counted(errors, "error"),
                                             mode_ == FixMode::Write ? "left" : "found"));
        return {.status = !isComplete  ? ExitStatus::Failed
                          : errors > 0 ? ExitStatus::Negative
                                       : ExitStatus::Success,
                .output = diff(),
                .complaints = std::move(complaints)};
    }

    std::string result() const {
        if (made_.empty())
            return "nothing to fix";
        std::size_t findings = 0;
        for (const auto& [file, change] : made_)
            findings += change.fixCount;
        const std::string made =
            fmt::format("{} in {}", counted(findings, "finding"), counted(made_.size(), "file"));
        return mode_ == FixMode::Write ? "fixed " + made
                                       : made + " can be fixed; --write changes the files";
    }

    const FixHost& host_;
    const PathNames& names_;
    FixMode mode_;
    DiffStyle style_;
    CheckedFiles checked_;
    FixPlan plan_;
    std::vector<std::string> failures_;                // of the last pass, which has all of them
    std::map<std::filesystem::path, FileChange> made_; // by the new names of the files
};

} // namespace

Answer fixFindings(const FixHost& host, const PathNames& names, FixMode mode, DiffStyle style) {
    return FixRun(host, names, mode, style).run();
}

} // namespace refdoc::check
