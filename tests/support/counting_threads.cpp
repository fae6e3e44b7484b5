// SPDX-License-Identifier: GPL-3.0-or-later
// A library that is loaded in front of a built program (LD_PRELOAD). At the program's end the file that TARVOKOL_THREAD_COUNT
// names takes the largest number of threads that ran at a time beside the main one. Where TARVOKOL_MOST_THREADS names a
// number, no more than so many are started, as on a system that has reached its limit.
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <pthread.h>

namespace {

using Start = void* (*)(void*);

struct Begun {
    Start start;
    void* argument;
};

std::atomic<int> running{0};
std::atomic<int> most{0};
// Counted apart: how many of those that were started still run depends on how busy the machine is.
std::atomic<int> started{0};

void* Counted(void* begun) {
    const Begun work = *static_cast<Begun*>(begun);
    delete static_cast<Begun*>(begun);
    void* const result = work.start(work.argument);
    --running;
    return result;
}

// Writes the number when the program ends.
struct Report {
    Report() = default;
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    ~Report() {
        const char* const path = std::getenv("TARVOKOL_THREAD_COUNT");
        std::FILE* const file = path != nullptr ? std::fopen(path, "w") : nullptr;
        if (file == nullptr) return;
        std::fprintf(file, "%d", most.load());
        std::fclose(file);
    }
} report;

}  // namespace

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, Start start,
                              void* argument) {
    using Create = int (*)(pthread_t*, const pthread_attr_t*, Start, void*);
    static const auto real = reinterpret_cast<Create>(::dlsym(RTLD_NEXT, "pthread_create"));
    const char* const limit = std::getenv("TARVOKOL_MOST_THREADS");
    if (limit != nullptr && started++ >= std::atoi(limit)) return EAGAIN;
    const int now = ++running;
    for (int before = most; before < now && !most.compare_exchange_weak(before, now);) {
    }
    return real(thread, attributes, Counted, new Begun{start, argument});
}
