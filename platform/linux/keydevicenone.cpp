#include "platform/linux/keydevice.h"

bool Board::KeyDevice::isBuilt()
{
    return false;
}

int Board::KeyDevice::codeOf(const std::string &)
{
    return -1;
}

Board::KeyDevice::KeyDevice()
    : m_descriptor(-1),
      m_device(0)
{
}

Board::KeyDevice::~KeyDevice()
{
}

bool Board::KeyDevice::open(const std::string &, std::string *)
{
    return m_device != 0;
}

int Board::KeyDevice::descriptor() const
{
    return m_descriptor;
}

std::string Board::KeyDevice::name() const
{
    return std::string();
}

bool Board::KeyDevice::hasKey(int) const
{
    return false;
}

bool Board::KeyDevice::grab(std::string *)
{
    return false;
}

bool Board::KeyDevice::read(std::vector<Event> *)
{
    return false;
}
