#pragma once

#include <cstddef>
#include <utility>

namespace reference::docparser::benchmarks {

/// Measures the calls that a row consists of: their time, their memory or whatever the derived
/// class is about. One thread at a time.
class Meter {
public:
    virtual ~Meter() = default;

    /// Measures one call. Neither making its input nor dropping its result counts as time; the
    /// input counts as memory, because the caller holds it.
    /// \param inputBytes  the JSON text that the call is about
    /// \param makeInput   makeInput() is the call's argument
    /// \param call        call(input) returns what the caller keeps
    template <class MakeInput, class Call>
    void measure(std::size_t inputBytes, MakeInput makeInput, Call call) {
        prepare();
        auto input = makeInput();
        start();
        {
            [[maybe_unused]] const auto result = call(std::move(input));
            stop();
            account(inputBytes);
        }
    }

protected:
    Meter() = default;
    Meter(const Meter&) = default;
    Meter& operator=(const Meter&) = default;

private:
    virtual void prepare() {}
    virtual void start() = 0;
    virtual void stop() = 0;
    /// The call's result is still there.
    virtual void account(std::size_t inputBytes) = 0;
};

} // namespace reference::docparser::benchmarks
