// A program of its own: it takes the place of the allocator and of the lock functions for everything in it.
#include "metronome/ClickMixer.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TAMSEL_SANITIZED 1
#else
#define TAMSEL_SANITIZED 0
#endif

namespace {

// Set while this thread does what must not allocate or lock; counts what it does nevertheless.
thread_local bool watched = false;
thread_local int allocations = 0;
thread_local int locks = 0;

} // namespace

#if !TAMSEL_SANITIZED

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);

void* malloc(std::size_t size) {
    allocations += watched ? 1 : 0;
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
    allocations += watched ? 1 : 0;
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) {
    allocations += watched ? 1 : 0;
    return __libc_realloc(memory, size);
}

void free(void* memory) {
    allocations += watched ? 1 : 0;
    __libc_free(memory);
}

int pthread_mutex_lock(pthread_mutex_t* mutex) {
    using Lock = int (*)(pthread_mutex_t*);
    static const auto original = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    locks += watched ? 1 : 0;
    return original(mutex);
}

} // extern "C"

#endif

namespace tamsel {
namespace {

// Everything that a callback meets: orders in time, late ones, overlaps, free sounds, ends of timelines, full voices.
class Playing {
public:
    Playing() { sound.setFrameLength(882); }

    // Orders, and renders two hundred blocks after each; only the rendering is watched.
    void run(bool watch) {
        ClickMixer::Timeline timeline = mixer.openTimeline();
        mixer.play(timeline);
        qint64 time = 0;
        for (int round = 0; round < 20; ++round) {
            if (round % 5 == 4) {
                timeline = mixer.openTimeline();
                mixer.play(timeline);
                time = 0;
            }
            while (mixer.order(sound, time, timeline))
                time += 300;
            static_cast<void>(mixer.orderFree(sound, 0));
            watched = watch;
            for (int i = 0; i < 200; ++i)
                mixer.render(block);
            watched = false;
            mixer.takeNotices(timeline);
        }
    }

private:
    ClickMixer mixer;
    SoundBuffer sound = *SoundBuffer::make({44100, 2, AudioFormat::Layout::NonInterleaved}, 882);
    std::array<float, 2 * 441> block{};
};

TEST(Callback, NeitherAllocatesNorLocks) {
    if (TAMSEL_SANITIZED)
        GTEST_SKIP() << "the sanitizer has an allocator of its own";
    std::mutex mutex;
    Playing playing;
    playing.run(true);
    EXPECT_EQ(allocations, 0);
    EXPECT_EQ(locks, 0);
    watched = true;
    int* volatile memory = new int;
    delete memory;
    const std::lock_guard lock(mutex);
    watched = false;
    EXPECT_EQ(allocations, 2) << "the watch itself works";
    EXPECT_EQ(locks, 1) << "the watch itself works";
}

// How a process ends that may make no system call from the start of the work on.
template <typename Work>
int statusWithoutSystemCalls(Work work) {
    const pid_t child = fork();
    if (child == 0) {
        // Allowed are only exit, and read and write, of which nothing here has use. All others kill.
        if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_STRICT) != 0)
            abort();
        work();
        syscall(SYS_exit, 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(Callback, MakesNoSystemCall) {
    if (TAMSEL_SANITIZED)
        GTEST_SKIP() << "the sanitizer makes system calls of its own";
    Playing playing;
    EXPECT_EQ(statusWithoutSystemCalls([&] { playing.run(false); }), 0);
    const int caught = statusWithoutSystemCalls([] { syscall(SYS_gettid); });
    EXPECT_TRUE(WIFSIGNALED(caught) && WTERMSIG(caught) == SIGKILL) << "the watch itself works";
}

} // namespace
} // namespace tamsel
