#include "player.h"

#include "device.h"

Player::Player(Device &device)
    : m_device(device)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &Player::workNext);
}

void Player::start(const Script &script)
{
    m_script = script;
    m_next = 0;
    m_isPlaying = true;
    if (!m_isWorking)
        m_timer.start(0);
}

void Player::stop()
{
    if (!m_isPlaying)
        return;
    m_timer.stop();
    m_isPlaying = false;
    emit finished();
}

void Player::workNext()
{
    if (m_next == m_script.size())
        return stop();
    const ScriptStep step = m_script[m_next++];
    if (step.key == 0)
        return m_timer.start(step.milliseconds);
    m_isWorking = true;
    play({step}, m_device, 0);
    m_isWorking = false;
    if (m_isPlaying)
        m_timer.start(0);
}
