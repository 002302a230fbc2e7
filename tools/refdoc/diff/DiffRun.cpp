#include "tools/refdoc/diff/DiffRun.hpp"

#include "platform/terminal/OutputDevice.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <fmt/format.h>

#include <utility>
#include <vector>

namespace refdoc::diff {

namespace {

std::string_view sideText(Side side) {
    switch (side) {
    case Side::Old: return "OLD";
    case Side::New: return "NEW";
    case Side::Both: return "OLD and NEW";
    }
    return {};
}

std::vector<std::string> complaintsAbout(const std::vector<DamagedFile>& files) {
    std::vector<std::string> complaints;
    for (const DamagedFile& file : files)
        complaints.push_back(
            fmt::format("skipped in {}: {}: {}", sideText(file.side), file.path, file.error));
    return complaints;
}

// Owns everything that a comparison needs between the parts of its output.
class DiffRun {
public:
    DiffRun(std::unique_ptr<Tree> oldTree, std::unique_ptr<Tree> newTree, DiffSettings settings)
        : old_(std::move(oldTree)),
          new_(std::move(newTree)),
          settings_(std::move(settings)),
          comparison_(*old_, *new_, *settings_.output, settings_.only) {
        // The bar would disturb output that appears beside it.
        const bool isOutputVisible = !settings_.isWhole && platform::askStandardOutput().isTerminal;
        progress_.emplace(platform::askStandardError().isTerminal && !isOutputVisible);
        progress_->begin("comparing", comparison_.productCount());
    }

    // Returns the next part of the output, or all of it.
    Answer next(const std::shared_ptr<DiffRun>& self) {
        Answer answer;
        do {
            if (comparison_.isDone())
                return finish(std::move(answer));
            answer.output += comparison_.next([&] { progress_->step(); });
        } while (settings_.isWhole);
        answer.remainder = [self] { return self->next(self); };
        return answer;
    }

private:
    Answer finish(Answer answer) {
        progress_.reset(); // erases the bar before the complaints are printed
        answer.output += comparison_.finish();
        const bool isDifferent = comparison_.summary().total() > 0;
        if (settings_.isNegativeIfDifferent && isDifferent)
            answer.status = ExitStatus::Negative;
        if (isDifferent)
            answer.output.insert(0, settings_.heading);
        answer.complaints = complaintsAbout(comparison_.summary().damagedFiles);
        return answer;
    }

    std::unique_ptr<Tree> old_;
    std::unique_ptr<Tree> new_;
    DiffSettings settings_;
    TreeComparison comparison_;
    std::optional<Progress> progress_;
};

std::unique_ptr<DiffOutput> outputFor(const Options& options, const PageSetup& setup) {
    if (options.values.has("--markdown"))
        return markdownOutput();
    if (options.format == OutputFormat::Json)
        return jsonOutput();
    if (options.format == OutputFormat::JsonLines)
        return jsonLinesOutput();
    return textOutput(setup);
}

} // namespace

DiffSettings readSettings(const Options& options, const PageSetup& setup) {
    return {.output = outputFor(options, setup),
            .only = classFrom(options.values.value("--only").value_or("")),
            .isNegativeIfDifferent = options.values.has("--exit-code"),
            .isWhole = options.format == OutputFormat::Text};
}

Answer runComparison(std::unique_ptr<Tree> oldTree, std::unique_ptr<Tree> newTree,
                     DiffSettings settings) {
    const auto run =
        std::make_shared<DiffRun>(std::move(oldTree), std::move(newTree), std::move(settings));
    return run->next(run);
}

} // namespace refdoc::diff
