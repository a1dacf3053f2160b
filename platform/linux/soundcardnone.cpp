#include "platform/linux/soundcard.h"

bool Board::SoundCard::isBuilt()
{
    return false;
}

Board::SoundCard::SoundCard()
    : m_handle(0)
{
}

Board::SoundCard::~SoundCard()
{
}

bool Board::SoundCard::isOpen() const
{
    return m_handle != 0;
}

bool Board::SoundCard::open(const std::string &, std::string *)
{
    return false;
}

bool Board::SoundCard::play(const std::vector<short> &, std::string *)
{
    return false;
}

void Board::SoundCard::stop()
{
}

void Board::SoundCard::close()
{
}
