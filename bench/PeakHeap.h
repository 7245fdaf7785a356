// The heap's high-water mark, for a program that includes this header in exactly
// one source: malloc and its relatives are replaced by wrappers around glibc's own
// that, while a measurement runs, add up the usable size of every live block.
// Expat, the C++ runtime and the library all allocate through these, so the peak
// covers all of them. Outside a measurement a wrapper costs one test.
#pragma once

#include <malloc.h>

#include <cstddef>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
void __libc_free(void*);
}

namespace OrvexBench {
namespace PeakHeap {

inline bool g_tracking = false;
inline long long g_live = 0;
inline long long g_peak = 0;

inline void* Note(void* block)
{
    if (block) {
        g_live += static_cast<long long>(malloc_usable_size(block));
        if (g_live > g_peak) g_peak = g_live;
    }
    return block;
}

inline void Forget(void* block)
{
    if (block) g_live -= static_cast<long long>(malloc_usable_size(block));
}

// Runs fn and gives the most bytes it held on the heap at any one time beyond
// what was held before (blocks from before that it frees count as negative).
template <typename Fn>
long long Measure(Fn&& fn)
{
    g_live = g_peak = 0;
    g_tracking = true;
    fn();
    g_tracking = false;
    return g_peak;
}

}  // namespace PeakHeap
}  // namespace OrvexBench

extern "C" {

void* malloc(std::size_t size)
{
    void* block = __libc_malloc(size);
    return OrvexBench::PeakHeap::g_tracking ? OrvexBench::PeakHeap::Note(block) : block;
}

void* calloc(std::size_t count, std::size_t size)
{
    void* block = __libc_calloc(count, size);
    return OrvexBench::PeakHeap::g_tracking ? OrvexBench::PeakHeap::Note(block) : block;
}

void* realloc(void* old, std::size_t size)
{
    if (!OrvexBench::PeakHeap::g_tracking) return __libc_realloc(old, size);
    const long long before = old ? static_cast<long long>(malloc_usable_size(old)) : 0;
    void* block = __libc_realloc(old, size);
    if (block || size == 0) OrvexBench::PeakHeap::g_live -= before;
    return OrvexBench::PeakHeap::Note(block);
}

void free(void* block)
{
    if (OrvexBench::PeakHeap::g_tracking) OrvexBench::PeakHeap::Forget(block);
    __libc_free(block);
}

void* memalign(std::size_t alignment, std::size_t size)
{
    void* block = __libc_memalign(alignment, size);
    return OrvexBench::PeakHeap::g_tracking ? OrvexBench::PeakHeap::Note(block) : block;
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return memalign(alignment, size);
}

int posix_memalign(void** out, std::size_t alignment, std::size_t size)
{
    void* block = memalign(alignment, size);
    if (!block) return 12;  // ENOMEM
    *out = block;
    return 0;
}

}  // extern "C"
