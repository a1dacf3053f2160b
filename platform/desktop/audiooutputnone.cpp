#include "platform/desktop/audiooutput.h"

Desktop::AudioOutput::~AudioOutput()
{
}

bool Desktop::AudioOutput::open()
{
    return m_device != 0;
}

void Desktop::AudioOutput::play(const std::vector<std::int16_t> &)
{
}

void Desktop::AudioOutput::close()
{
}
