#include "tests/faults/AllocationFaults.hpp"
#include "tests/support/ReplacedNew.hpp"

#include <link.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <string_view>

// The original functions: those of a sanitizer if the build has one, otherwise those of the C
// library.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);
[[gnu::weak]] void* __interceptor_malloc(std::size_t size);
[[gnu::weak]] void* __interceptor_calloc(std::size_t count, std::size_t size);
[[gnu::weak]] void* __interceptor_realloc(void* memory, std::size_t size);
[[gnu::weak]] void __interceptor_free(void* memory);
}

namespace docparser_tests {

namespace {

// Addresses of live allocations, in a hash table with linear probing. It is in static memory
// because it cannot allocate, and has room for far more allocations than any operation under test
// makes.
class AddressSet {
public:
    void insert(const void* address) noexcept {
        const Lock lock(busy_);
        std::size_t slot = home(address);
        while (slots_[slot])
            slot = next(slot);
        slots_[slot] = address;
        ++size_;
    }

    void erase(const void* address) noexcept {
        if (size_ == 0)
            return;
        const Lock lock(busy_);
        std::size_t slot = home(address);
        while (slots_[slot] && slots_[slot] != address)
            slot = next(slot);
        if (!slots_[slot])
            return;
        --size_;
        close(slot);
    }

    std::size_t size() const noexcept { return size_; }

    void clear() noexcept {
        const Lock lock(busy_);
        slots_ = {};
        size_ = 0;
    }

private:
    class Lock {
    public:
        explicit Lock(std::atomic_flag& flag) noexcept : flag_(flag) {
            while (flag_.test_and_set(std::memory_order_acquire)) {
            }
        }
        ~Lock() { flag_.clear(std::memory_order_release); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        std::atomic_flag& flag_;
    };

    static constexpr std::size_t kSlots = std::size_t{1} << 15;

    static std::size_t home(const void* address) noexcept {
        return (reinterpret_cast<std::uintptr_t>(address) >> 4) % kSlots;
    }
    static std::size_t next(std::size_t slot) noexcept { return (slot + 1) % kSlots; }

    // Empties a slot and moves up the following addresses that a lookup would no longer find.
    void close(std::size_t hole) noexcept {
        for (std::size_t slot = next(hole); slots_[slot]; slot = next(slot)) {
            const std::size_t distance = (slot - home(slots_[slot])) % kSlots;
            if (distance >= (slot - hole) % kSlots) {
                slots_[hole] = slots_[slot];
                hole = slot;
            }
        }
        slots_[hole] = nullptr;
    }

    std::atomic_flag busy_;
    std::atomic<std::size_t> size_{0};
    std::array<const void*, kSlots> slots_{};
};

constinit AddressSet live;
constinit AddressSet liveOfLibzip;
constinit thread_local CallSchedule schedule;
constinit thread_local bool isArmed = false;

// Counts the current allocation and returns whether it must fail.
bool fails() noexcept {
    if (!isArmed || !schedule.nextFails())
        return false;
    errno = ENOMEM;
    return true;
}

// The addresses of the code of libzip.
struct CodeRange {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;

    bool contains(const void* code) const noexcept {
        const auto address = reinterpret_cast<std::uintptr_t>(code);
        return begin <= address && address < end;
    }
};

int rememberLibzip(dl_phdr_info* library, std::size_t, void* range) noexcept {
    if (std::string_view(library->dlpi_name).find("libzip.so") == std::string_view::npos)
        return 0;
    for (int i = 0; i < library->dlpi_phnum; ++i) {
        const auto& segment = library->dlpi_phdr[i];
        const std::uintptr_t begin = library->dlpi_addr + segment.p_vaddr;
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_X) != 0)
            *static_cast<CodeRange*>(range) = {begin, begin + segment.p_memsz};
    }
    return 1;
}

const CodeRange& libzip() noexcept {
    static const CodeRange range = [] {
        CodeRange found;
        ::dl_iterate_phdr(rememberLibzip, &found);
        return found;
    }();
    return range;
}

// \param caller  the code that requested the memory
void* account(void* memory, const void* caller) noexcept {
    if (isArmed && memory)
        (libzip().contains(caller) ? liveOfLibzip : live).insert(memory);
    return memory;
}

void forget(const void* memory) noexcept {
    live.erase(memory);
    liveOfLibzip.erase(memory);
}

void* allocate(std::size_t size, const void* caller) noexcept {
    if (fails())
        return nullptr;
    return account(__interceptor_malloc ? __interceptor_malloc(size) : __libc_malloc(size), caller);
}

void release(void* memory) noexcept {
    if (!memory)
        return;
    forget(memory);
    __interceptor_free ? __interceptor_free(memory) : __libc_free(memory);
}

} // namespace

AllocationFaults::AllocationFaults(std::size_t first, Repetition repetition) noexcept {
    libzip(); // the search itself must not run under faults
    schedule = CallSchedule(first, repetition);
    isArmed = true;
}

AllocationFaults::~AllocationFaults() {
    isArmed = false;
}

std::size_t AllocationFaults::failures() const noexcept {
    return schedule.failures();
}

std::size_t AllocationFaults::calls() noexcept {
    return schedule.calls();
}

std::size_t liveAllocations(Allocator allocator) noexcept {
    return (allocator == Allocator::Libzip ? liveOfLibzip : live).size();
}

void forgetLiveAllocations() noexcept {
    live.clear();
    liveOfLibzip.clear();
}

void* allocateForNew(std::size_t size) noexcept {
    return allocate(size, nullptr);
}

void releaseForDelete(void* memory) noexcept {
    release(memory);
}

} // namespace docparser_tests

using docparser_tests::account;
using docparser_tests::allocate;
using docparser_tests::fails;
using docparser_tests::forget;
using docparser_tests::release;

// The parameters have the names that the C library gives them.
extern "C" {

// The leak sanitizer calls this. It must not report leaks of libzip either.
const char* __lsan_default_suppressions() {
    return "leak:libzip.so";
}

void* malloc(std::size_t size) noexcept {
    return allocate(size, __builtin_return_address(0));
}

void* calloc(std::size_t nmemb, std::size_t size) noexcept {
    if (fails())
        return nullptr;
    return account(__interceptor_calloc ? __interceptor_calloc(nmemb, size)
                                        : __libc_calloc(nmemb, size),
                   __builtin_return_address(0));
}

void* realloc(void* ptr, std::size_t size) noexcept {
    if (fails())
        return nullptr;
    // Another thread may receive the old address as soon as it is freed.
    forget(ptr);
    return account(__interceptor_realloc ? __interceptor_realloc(ptr, size)
                                         : __libc_realloc(ptr, size),
                   __builtin_return_address(0));
}

void free(void* ptr) noexcept {
    release(ptr);
}

} // extern "C"
