#include "tests/support/ReplacedNew.hpp"

#include <new>

using docparser_tests::allocateForNew;
using docparser_tests::releaseForDelete;

void* operator new(std::size_t size) {
    if (void* memory = allocateForNew(size))
        return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocateForNew(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocateForNew(size);
}
void operator delete(void* memory) noexcept {
    releaseForDelete(memory);
}
void operator delete[](void* memory) noexcept {
    releaseForDelete(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    releaseForDelete(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    releaseForDelete(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    releaseForDelete(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    releaseForDelete(memory);
}
