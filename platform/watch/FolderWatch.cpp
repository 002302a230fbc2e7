#include "platform/watch/FolderWatch.hpp"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <thread>
#include <tuple>
#include <utility>

namespace platform {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds kIntervalWithoutEvents{250};
constexpr milliseconds kIntervalWithEvents{5000};
constexpr milliseconds kQuietTime{40};
constexpr int kMostQuietTimes = 10; // a file that changes all the time is not waited for

} // namespace

FolderWatch::FolderWatch(std::vector<fs::path> folders, std::unique_ptr<FolderEvents> events)
    : folders_(std::move(folders)), events_(std::move(events)), states_(readStates()) {}

std::set<fs::path> FolderWatch::wait(milliseconds limit) {
    if (!isTimeToCompare(limit))
        return {};
    nextComparison_ = Clock::now() + (events_ ? kIntervalWithEvents : kIntervalWithoutEvents);
    States states = readStates();
    if (states == states_)
        return {};
    states = settled(std::move(states));
    std::vector<States::value_type> changed;
    std::ranges::set_symmetric_difference(
        states_, states, std::back_inserter(changed), [](const auto& left, const auto& right) {
            return std::tie(left.first, left.second.time, left.second.size) <
                   std::tie(right.first, right.second.time, right.second.size);
        });
    states_ = std::move(states);
    std::set<fs::path> files;
    for (const auto& [file, state] : changed)
        files.insert(file);
    return files;
}

bool FolderWatch::isTimeToCompare(milliseconds limit) {
    if (events_) {
        const FolderEvents::Outcome outcome = events_->wait(folders_, limit);
        if (outcome == FolderEvents::Outcome::Happened)
            return true;
        if (outcome == FolderEvents::Outcome::Failed)
            events_.reset();
    } else {
        std::this_thread::sleep_for(std::min(limit, kIntervalWithoutEvents));
    }
    return Clock::now() >= nextComparison_;
}

FolderWatch::States FolderWatch::settled(States states) const {
    for (int times = 0; times < kMostQuietTimes; ++times) {
        std::this_thread::sleep_for(kQuietTime);
        States later = readStates();
        if (later == states)
            break;
        states = std::move(later);
    }
    return states;
}

// A folder or file that disappears meanwhile counts as missing.
FolderWatch::States FolderWatch::readStates() const {
    States states;
    std::error_code missing;
    for (const fs::path& folder : folders_) {
        for (fs::directory_iterator entry(folder, missing), end; !missing && entry != end;
             entry.increment(missing)) {
            std::error_code error;
            if (!entry->is_regular_file(error))
                continue;
            const State state{entry->last_write_time(error), entry->file_size(error)};
            if (!error)
                states.emplace(entry->path(), state);
        }
    }
    return states;
}

} // namespace platform
