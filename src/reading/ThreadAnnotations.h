// SPDX-License-Identifier: Apache-2.0
#pragma once

// Tells the thread sanitizer of orderings that it cannot see, since Qt's own locks are not
// instrumented. Empty in every other build.
#ifdef OBFT_THREAD_SANITIZER
extern "C" void __tsan_acquire(void* address);
extern "C" void __tsan_release(void* address);
#define OBFT_HAPPENS_AFTER(address)                                                                \
    __tsan_acquire(const_cast<void*>(static_cast<const void*>(address)))
#define OBFT_HAPPENS_BEFORE(address)                                                               \
    __tsan_release(const_cast<void*>(static_cast<const void*>(address)))
#else
#define OBFT_HAPPENS_AFTER(address) static_cast<void>(address)
#define OBFT_HAPPENS_BEFORE(address) static_cast<void>(address)
#endif
