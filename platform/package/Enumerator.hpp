#pragma once

#include "platform/Cxx20.hpp"

#include <cstddef>
#include <utility>
#include <vector>

namespace opc {

/// A range over a vector that it owns.
template <class T>
class Enumerator {
public:
    /// Type of the elements.
    using value_type = T;
    /// Iterates over the elements; valid as long as the enumerator.
    using const_iterator = typename std::vector<T>::const_iterator;

    /// \param elements  the elements, in order
    explicit Enumerator(std::vector<T> elements) : elements_(std::move(elements)) {}

    /// The first element, or end().
    const_iterator begin() const noexcept { return elements_.begin(); }
    /// Past the last element.
    const_iterator end() const noexcept { return elements_.end(); }
    /// The number of elements.
    std::size_t size() const noexcept { return elements_.size(); }
    /// Whether there are no elements.
    bool empty() const noexcept { return elements_.empty(); }

    /// The elements, in order; valid as long as the enumerator.
    const std::vector<T>& elements() const& noexcept { return elements_; }
    /// Moves the elements out of a temporary enumerator.
    std::vector<T> elements() && { return std::move(elements_); }

private:
    std::vector<T> elements_;
};

} // namespace opc
