#include "platform/linux/boardsound.h"

#include "platform/common/tones.h"
#include "platform/linux/boardinternal.h"
#include "platform/linux/soundcard.h"
#include "platform/logging.h"
#include "platform/soundmanager.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>

namespace {

using Board::Locker;

const std::size_t longestQueue = 8;
const long long shortestHeardMs = 20;
const long long retryMs = 5000;
const long long longestExitMs = 200;
const long long cardMs = 100;  // that a card may be behind what it was given

struct Player
{
    Player()
        : isRunning(false), isEnding(false), hasEnded(false), isMuted(false), nextTry(0)
    {
        pthread_mutex_init(&mutex, 0);
        Board::initialize(&wake);
        Board::initialize(&ended);
    }

    pthread_mutex_t mutex;
    pthread_cond_t wake;
    pthread_cond_t ended;
    bool isRunning;
    bool isEnding;
    bool hasEnded;
    bool isMuted;
    std::deque<int> queue;

    // Of the thread that plays.
    long long nextTry;
    std::string lastProblem;
};

Player *instance = 0;  // never destroyed: other threads may still play while the process exits
pthread_once_t instanceOnce = PTHREAD_ONCE_INIT;

void makeInstance()
{
    instance = new Player;
}

Player &player()
{
    pthread_once(&instanceOnce, makeInstance);
    return *instance;
}

bool isSilent()
{
    return !Board::SoundCard::isBuilt() || Board::config().soundDevice.empty() || Board::config().soundVolume == 0;
}

void failed(const std::string &problem)
{
    if (player().lastProblem != problem)
        Logging::log(Logging::LogError, "[sound] %s: %s", Board::config().soundDevice.c_str(), problem.c_str());
    player().lastProblem = problem;
    player().nextTry = Board::monotonicMs() + retryMs;
}

bool isReady(Board::SoundCard *card)
{
    if (card->isOpen())
        return true;
    if (Board::monotonicMs() < player().nextTry)
        return false;
    std::string problem;
    if (card->open(Board::config().soundDevice, &problem))
        return true;
    failed(problem);
    return false;
}

// Returns how many milliseconds there are to hear.
long long start(int id, Board::SoundCard *card)
{
    if (!isReady(card))
        return 0;
    const std::vector<short> samples = Tones::samples(id, Board::config().soundVolume);
    std::string problem;
    if (!card->play(samples, &problem)) {
        failed(problem);
        return 0;
    }
    player().lastProblem.clear();
    return static_cast<long long>(samples.size()) * 1000 / Tones::sampleRate + cardMs;
}

// With the mutex. Returns when \a ms have passed, or earlier when another sound or the end has to come.
void hear(long long ms)
{
    Player &p = player();
    const long long start = Board::monotonicMs();
    while (!p.isEnding) {
        const long long end = start + (p.queue.empty() ? ms : std::min(ms, shortestHeardMs));
        if (Board::monotonicMs() >= end)
            return;
        Board::waitUntil(&p.wake, &p.mutex, end);
    }
}

void playNext(Board::SoundCard *card)
{
    Player &p = player();
    const int id = p.queue.front();
    p.queue.pop_front();
    pthread_mutex_unlock(&p.mutex);
    const long long ms = start(id, card);
    pthread_mutex_lock(&p.mutex);
    hear(ms);
    pthread_mutex_unlock(&p.mutex);
    card->stop();
    pthread_mutex_lock(&p.mutex);
}

void *run(void *)
{
    Player &p = player();
    Board::SoundCard card;
    pthread_mutex_lock(&p.mutex);
    while (!p.isEnding) {
        if (p.queue.empty())
            pthread_cond_wait(&p.wake, &p.mutex);
        else
            playNext(&card);
    }
    pthread_mutex_unlock(&p.mutex);
    card.close();

    Locker lock(&p.mutex);
    p.hasEnded = true;
    pthread_cond_signal(&p.ended);
    return 0;
}

// A card that does not answer cannot keep the process from exiting: nobody joins the thread.
void end()
{
    Player &p = player();
    Locker lock(&p.mutex);
    p.isEnding = true;
    pthread_cond_signal(&p.wake);
    const long long deadline = Board::monotonicMs() + longestExitMs;
    while (!p.hasEnded && Board::waitUntil(&p.ended, &p.mutex, deadline)) {
    }
}

// With the mutex.
void startThread()
{
    Player &p = player();
    pthread_t thread;
    const int error = Board::startThread(&thread, run);
    if (error != 0) {
        Logging::log(Logging::LogError, "[sound] There is no thread to play: %s", std::strerror(error));
        return;
    }
    pthread_detach(thread);
    p.isRunning = true;
    std::atexit(end);
}

}

SoundManager *SoundManager::getInstance()
{
    static SoundManager manager;
    return &manager;
}

void SoundManager::sndPlay(int id)
{
    if (isSilent())
        return;
    Player &p = player();
    Locker lock(&p.mutex);
    if (p.isMuted || p.isEnding)
        return;
    p.queue.push_back(id);
    if (p.queue.size() > longestQueue)
        p.queue.pop_front();
    if (!p.isRunning)
        startThread();
    pthread_cond_signal(&p.wake);
}

void Board::setMuted(bool muted)
{
    Locker lock(&player().mutex);
    player().isMuted = muted;
    if (muted)
        player().queue.clear();
}

bool Board::isMuted()
{
    Locker lock(&player().mutex);
    return player().isMuted;
}
