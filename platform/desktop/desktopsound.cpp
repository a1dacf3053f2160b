#include "platform/desktop/desktopsound.h"

#include "platform/common/tones.h"
#include "platform/desktop/audiooutput.h"
#include "platform/logging.h"
#include "platform/soundmanager.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace {

using Lock = std::unique_lock<std::mutex>;

constexpr int volume = 50;  // percent
constexpr std::size_t recentMaximum = 32;
constexpr std::chrono::milliseconds longestExit(200);

struct Player
{
    enum State { Idle, Running, Ended };

    std::mutex mutex;
    std::condition_variable wake;
    State state = Idle;
    bool ending = false;
    bool muted = false;
    std::optional<int> next;
    std::deque<int> recent;
    std::size_t count = 0;
    Desktop::SoundListener listener;
};

Player &player()
{
    // Never destroyed: other threads may still play while the process exits.
    static Player *player = new Player;
    return *player;
}

void playUntilEnd(Desktop::AudioOutput &output)
{
    Player &p = player();
    Lock lock(p.mutex);
    for (;;) {
        p.wake.wait(lock, [&p] { return p.next || p.ending; });
        if (p.ending)
            return;
        const int id = *p.next;
        p.next.reset();
        lock.unlock();
        output.play(Tones::samples(id, volume));
        lock.lock();
    }
}

void run()
{
    Desktop::AudioOutput output;
    if (output.open())
        playUntilEnd(output);
    else
        Logging::log(Logging::LogTrace, "[sound] There is no audio, sounds stay silent");
    output.close();

    // From here on the process may exit; giving up the audio service takes longer than anyone should wait.
    Lock lock(player().mutex);
    player().state = Player::Ended;
    player().wake.notify_all();
}

void end()
{
    Player &p = player();
    Lock lock(p.mutex);
    p.ending = true;
    p.wake.notify_all();
    p.wake.wait_for(lock, longestExit, [&p] { return p.state == Player::Ended; });
}

void start()
{
    player().state = Player::Running;
    std::atexit(end);
    // Detached, so that an audio service that does not answer cannot keep the process from exiting.
    std::thread(run).detach();
}

}

SoundManager *SoundManager::getInstance()
{
    static SoundManager manager;
    return &manager;
}

void SoundManager::sndPlay(int id)
{
    Player &p = player();
    Lock lock(p.mutex);
    ++p.count;
    p.recent.push_back(id);
    if (p.recent.size() > recentMaximum)
        p.recent.pop_front();
    if (p.listener)
        p.listener(id);
    if (p.muted || p.ending || p.state == Player::Ended)
        return;
    p.next = id;
    if (p.state == Player::Idle)
        start();
    p.wake.notify_all();
}

void Desktop::setMuted(bool muted)
{
    Lock lock(player().mutex);
    player().muted = muted;
    if (muted)
        player().next.reset();
}

bool Desktop::isMuted()
{
    Lock lock(player().mutex);
    return player().muted;
}

std::vector<int> Desktop::recentSounds()
{
    Lock lock(player().mutex);
    return std::vector<int>(player().recent.begin(), player().recent.end());
}

std::size_t Desktop::soundCount()
{
    Lock lock(player().mutex);
    return player().count;
}

void Desktop::setSoundListener(SoundListener listener)
{
    Lock lock(player().mutex);
    std::swap(player().listener, listener);
}
