#include "tools/refdoc/serve/ServeCommand.hpp"

#include "docparser/DocResourceParser.hpp"
#include "docparser/Queries.hpp"
#include "platform/Failure.hpp"
#include "platform/HostServices.hpp"
#include "platform/terminal/Browser.hpp"
#include "platform/terminal/OutputDevice.hpp"
#include "platform/watch/FolderWatch.hpp"
#include "tools/refdoc/cli/CommandLine.hpp"
#include "tools/refdoc/cli/Number.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/html/PageFrame.hpp"
#include "tools/refdoc/http/Host.hpp"
#include "tools/refdoc/http/HttpServer.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/serve/LivePages.hpp"
#include "tools/refdoc/serve/StopSignals.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"
#include "tools/refdoc/terminal/Progress.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/json/value.hpp>
#include <fmt/format.h>

#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <stdexcept>
#include <thread>

namespace refdoc {

using namespace std::chrono_literals;
using reference::docparser::DocResourceParser;

namespace {

constexpr int kUsualPort = 8400;
constexpr std::size_t kLargestPort = 65535;
constexpr auto kWatchTime = 200ms;

std::optional<int> portFrom(const OptionValues& values) {
    const std::optional<std::string> value = values.value("--port");
    if (!value)
        return std::nullopt;
    const std::optional<std::size_t> port = numberFrom(*value);
    if (!port || *port > kLargestPort)
        throw UsageError(fmt::format("invalid port \"{}\"; expected a number from 0 to {}", *value,
                                     kLargestPort));
    return static_cast<int>(*port);
}

std::vector<std::filesystem::path> watchedFolders(const Options& options) {
    const auto roots = DocResourceParser::getReferenceRoots();
    const std::u16string manifestFolder =
        options.installFolder.value_or(platform::hostServices()->installPath());
    std::vector<std::filesystem::path> folders;
    for (const std::u16string& folder :
         {roots->referenceApiFolder, roots->lookupFolder, supportFolder(), manifestFolder}) {
        if (!folder.empty())
            folders.push_back(reference::docparser::toPath(folder));
    }
    return folders;
}

// Editors write other files beside those that they save.
bool isReadByLibrary(const std::filesystem::path& file) {
    return file.extension() == ".json" || file.extension() == ".zip";
}

class Session {
public:
    Session(const Options& options, const std::string& address, std::optional<int> port)
        : options_(options),
          server_(listen(address, port)),
          watch_(watchedFolders(options)),
          progress_(platform::askStandardError().isTerminal),
          pages_(options_, versions_, progress_) {}

    std::string url() const { return server_->url(); }
    bool hasProducts() const { return pages_.hasProducts(); }

    // Returns when the process is asked to end.
    Answer run() {
        const std::jthread watcher([this](const std::stop_token& stop) { follow(stop); });
        server_->run([this] { return stopSignals_.isReceived(); });
        return {};
    }

private:
    std::unique_ptr<http::HttpServer> listen(const std::string& address, std::optional<int> port) {
        http::ServerSettings settings{
            .address = address,
            .port = port.value_or(kUsualPort),
            .eventPath = std::string(serve::kEventPath),
            .headers = {{"Content-Security-Policy",
                         fmt::format("{}; frame-ancestors 'none'", html::kPolicy)},
                        {"Cache-Control", "no-store"},
                        {"Cross-Origin-Resource-Policy", "same-origin"},
                        {"Referrer-Policy", "no-referrer"},
                        {"X-Content-Type-Options", "nosniff"}}};
        const auto find = [this](const std::string& path) { return pages_.find(path); };
        try {
            return std::make_unique<http::HttpServer>(settings, find, versions_);
        } catch (const std::runtime_error&) {
            if (port)
                throw;
        }
        settings.port = 0; // Another program, or another server, has the usual port.
        return std::make_unique<http::HttpServer>(settings, find, versions_);
    }

    void follow(const std::stop_token& stop) {
        // A check takes longer, so the pages show changes before it and while it runs.
        bool isUnchecked = false;
        std::future<void> check;
        while (!stop.stop_requested()) {
            std::set<std::filesystem::path> files = watch_.wait(kWatchTime);
            std::erase_if(files, [](const auto& file) { return !isReadByLibrary(file); });
            if (!files.empty()) {
                isUnchecked = true;
                // The pages stay as they are until the next change.
                platform::ignoreFailure([&] { pages_.update(files); });
            } else if (isUnchecked && isDone(check)) {
                isUnchecked = false;
                check = startCheck();
            }
        }
    }

    static bool isDone(const std::future<void>& check) {
        return !check.valid() || check.wait_for(0s) == std::future_status::ready;
    }

    std::future<void> startCheck() {
        // After a failure, the findings stay as they are until the next change.
        const auto check = [this] { platform::ignoreFailure([this] { pages_.check(); }); };
        std::future<void> started = std::async(check);
        if (started.wait_for(0s) == std::future_status::deferred)
            started.wait(); // The system allows no further thread, so this one checks.
        return started;
    }

    const Options options_;
    http::Versions versions_;
    std::unique_ptr<http::HttpServer> server_; // before the rest, so that a used port fails early
    platform::FolderWatch watch_;              // before the pages, so that no change is missed
    Progress progress_;
    serve::LivePages pages_;
    serve::StopSignals stopSignals_;
};

std::string outputOf(const std::string& url, OutputFormat format) {
    const boost::json::value document{{"url", url}};
    switch (format) {
    case OutputFormat::Json: return toIndentedJson(document);
    case OutputFormat::JsonLines: return toJsonLine(document);
    case OutputFormat::Plain: // not an option of this command
    case OutputFormat::Text: break;
    }
    return url + '\n';
}

Answer runServe(const Options& options, const PageSetup&) {
    const std::string address = options.values.value("--bind").value_or("127.0.0.1");
    const std::optional<int> port = portFrom(options.values);
    const auto session = std::make_shared<Session>(options, address, port);
    Answer answer{.output = outputOf(session->url(), options.format)};
    if (!http::isLoopback(address))
        answer.complaints.push_back(fmt::format(
            "warning: other computers can read the documentation at {}", session->url()));
    if (!session->hasProducts())
        answer.complaints.push_back(
            fmt::format("no product has a full resource file in {} yet",
                        quoted(DocResourceParser::getReferenceRoots()->referenceApiFolder)));
    if (options.values.has("--open") && !platform::openInBrowser(session->url()))
        answer.complaints.push_back("can't start a browser; open the URL in one");
    if (platform::askStandardError().isTerminal)
        answer.complaints.push_back("serving until Ctrl+C is pressed");
    answer.remainder = [session] { return session->run(); };
    return answer;
}

} // namespace

CommandEntry serveCommand() {
    return {
        .name = "serve",
        .help = "Show the documentation of all products in a browser",
        .description =
            "Prints the URL of the start page and serves the pages that the command site writes, "
            "made from the current files when they are opened. Pages that are open in a browser "
            "show a saved file at once; if it is malformed, they show the error and its position. "
            "Only programs on this computer can read the pages, unless --bind says otherwise. "
            "Ctrl+C ends the command.",
        .options = {{.name = "--port",
                     .placeholder = "N",
                     .type = ValueType::Name,
                     .help = "The port; 0 is any free one. By default 8400, or any free one if it "
                             "is in use"},
                    {.name = "--bind",
                     .placeholder = "ADDRESS",
                     .type = ValueType::Name,
                     .help = "The address to listen on instead of 127.0.0.1; other computers may "
                             "then read the pages"},
                    {.name = "--open", .help = "Open the start page in the browser"}},
        .examples = {{"refdoc --install samples serve --open", "Show the samples in the browser."}},
        .run = runServe,
    };
}

} // namespace refdoc
