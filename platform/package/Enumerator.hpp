#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace opc {

/// A list to be gone through: a range over the vector that it owns, which can be had as it is.
template <class T>
class Enumerator {
public:
    using value_type = T;
    using const_iterator = typename std::vector<T>::const_iterator;

    explicit Enumerator(std::vector<T> elements) : elements_(std::move(elements)) {}

    const_iterator begin() const noexcept { return elements_.begin(); }
    const_iterator end() const noexcept { return elements_.end(); }
    std::size_t size() const noexcept { return elements_.size(); }
    bool empty() const noexcept { return elements_.empty(); }

    /// The elements in their order; valid while the enumerator is.
    const std::vector<T>& elements() const& noexcept { return elements_; }
    /// The elements, moved out of an enumerator that is not needed any more.
    std::vector<T> elements() && { return std::move(elements_); }

private:
    std::vector<T> elements_;
};

} // namespace opc
