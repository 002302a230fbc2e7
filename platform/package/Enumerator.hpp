#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace opc {

/// A list to be gone through: a range over the vector that it owns, which can be had as it is.
template <class T>
class Enumerator {
public:
    /// What the list is made of.
    using value_type = T;
    /// Goes through the list; valid while the enumerator is.
    using const_iterator = typename std::vector<T>::const_iterator;

    /// \param elements  the list in its order
    explicit Enumerator(std::vector<T> elements) : elements_(std::move(elements)) {}

    /// The first element, or end().
    const_iterator begin() const noexcept { return elements_.begin(); }
    /// Past the last element.
    const_iterator end() const noexcept { return elements_.end(); }
    /// How many elements there are.
    std::size_t size() const noexcept { return elements_.size(); }
    /// Whether there is none.
    bool empty() const noexcept { return elements_.empty(); }

    /// The elements in their order; valid while the enumerator is.
    const std::vector<T>& elements() const& noexcept { return elements_; }
    /// The elements, moved out of an enumerator that is not needed any more.
    std::vector<T> elements() && { return std::move(elements_); }

private:
    std::vector<T> elements_;
};

} // namespace opc
