// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnAudioExport.h>

#include <dlfcn.h>

using Region = void (*)(void *data);

// FluidSynth has reverb and chorus in a parallel region of OpenMP, also where it is to have one
// thread, as it does here; for such a region GNU's runtime takes memory from the heap and gives it
// back, in each block and on the thread of the sound device. In the place of the runtime's own
// function, which libraries call by this name, this one runs a region of one thread without any of
// that, which OpenMP means to be the same. All others go where they were to go.
extern "C" ZARNAUDIO_EXPORT void GOMP_parallel(Region region, void *data, unsigned threads,
                                               unsigned flags)
{
    using Parallel = void (*)(Region, void *, unsigned, unsigned);
    if (threads == 1) {
        region(data);
        return;
    }
    static const auto parallel = reinterpret_cast<Parallel>(dlsym(RTLD_NEXT, "GOMP_parallel"));
    if (parallel != nullptr)
        parallel(region, data, threads, flags);
    else
        region(data); // without the runtime nobody has more threads
}
