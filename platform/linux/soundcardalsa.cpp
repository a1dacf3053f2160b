#include "platform/linux/soundcard.h"

#include "platform/common/tones.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

// Some versions of these headers leave a function without it.
extern "C" {
#include <alsa/asoundlib.h>
}

namespace {

const unsigned int bufferUs = 250000;  // a whole sound fits, so that writing one does not wait for the card

snd_pcm_t *pcm(void *handle)
{
    return static_cast<snd_pcm_t *>(handle);
}

// ALSA writes its own complaints to standard error.
void ignoreComplaint(const char *, int, const char *, int, const char *, va_list)
{
}

int writeAll(snd_pcm_t *card, const std::vector<short> &samples)
{
    std::size_t done = 0;
    while (done < samples.size()) {
        snd_pcm_sframes_t written = snd_pcm_writei(card, &samples[done], samples.size() - done);
        if (written < 0)
            written = snd_pcm_recover(card, int(written), 1);
        if (written < 0)
            return int(written);
        done += std::size_t(written);
    }
    return snd_pcm_state(card) == SND_PCM_STATE_PREPARED ? snd_pcm_start(card) : 0;
}

}

bool Board::SoundCard::isBuilt()
{
    return true;
}

Board::SoundCard::SoundCard()
    : m_handle(0)
{
}

Board::SoundCard::~SoundCard()
{
    close();
}

bool Board::SoundCard::isOpen() const
{
    return m_handle != 0;
}

bool Board::SoundCard::open(const std::string &device, std::string *problem)
{
    snd_lib_error_set_local(ignoreComplaint);
    snd_pcm_t *card = 0;
    // Waits only for the card, not until another program gives it up.
    int error = snd_pcm_open(&card, device.c_str(), SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK);
    if (error == 0) {
        snd_pcm_nonblock(card, 0);
        error = snd_pcm_set_params(card, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, 1,
            Tones::sampleRate, 1, bufferUs);
    }
    if (error == 0) {
        m_handle = card;
        return true;
    }
    if (card)
        snd_pcm_close(card);
    *problem = snd_strerror(error);
    return false;
}

bool Board::SoundCard::play(const std::vector<short> &samples, std::string *problem)
{
    snd_pcm_drop(pcm(m_handle));
    int error = snd_pcm_prepare(pcm(m_handle));
    if (error == 0)
        error = writeAll(pcm(m_handle), samples);
    if (error == 0)
        return true;
    close();
    *problem = snd_strerror(error);
    return false;
}

void Board::SoundCard::stop()
{
    if (m_handle)
        snd_pcm_drop(pcm(m_handle));
}

void Board::SoundCard::close()
{
    if (m_handle)
        snd_pcm_close(pcm(m_handle));
    m_handle = 0;
}
