#include "platform/desktop/audiooutput.h"

#include "platform/common/tones.h"

#include <SDL.h>
#include <dlfcn.h>

namespace {

using AlsaErrorHandler = void (*)(const char *, int, const char *, int, const char *, ...);

void ignoreAlsaError(const char *, int, const char *, int, const char *, ...)
{
}

// ALSA writes its own complaints to standard error where there is no sound card.
// SDL may load it at run time only, so there is no symbol to link with.
void silenceAlsa()
{
    void *alsa = dlopen("libasound.so.2", RTLD_LAZY);
    if (!alsa)
        return;
    using SetHandler = int (*)(AlsaErrorHandler);
    const auto setHandler = reinterpret_cast<SetHandler>(dlsym(alsa, "snd_lib_error_set_handler"));
    if (setHandler)
        setHandler(ignoreAlsaError);
}

}

Desktop::AudioOutput::~AudioOutput()
{
    SDL_AudioQuit();
#if SDL_VERSION_ATLEAST(2, 0, 16)
    SDL_TLSCleanup();  // what SDL keeps for a thread that it did not start itself
#endif
}

bool Desktop::AudioOutput::open()
{
    silenceAlsa();
    // Not SDL_Init: that would also take over the process's signals.
    if (SDL_AudioInit(nullptr) != 0)
        return false;

    SDL_AudioSpec wanted = {};
    wanted.freq = Tones::sampleRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = 512;  // 12 ms: a click is to come with the key
    m_device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (m_device == 0)
        return false;
    SDL_PauseAudioDevice(m_device, 0);
    return true;
}

void Desktop::AudioOutput::play(const std::vector<std::int16_t> &samples)
{
    SDL_ClearQueuedAudio(m_device);
    SDL_QueueAudio(m_device, samples.data(), Uint32(samples.size() * sizeof(samples[0])));
}

void Desktop::AudioOutput::close()
{
    if (m_device != 0)
        SDL_CloseAudioDevice(m_device);
    m_device = 0;
}
