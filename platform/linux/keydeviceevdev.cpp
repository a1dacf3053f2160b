#include "platform/linux/keydevice.h"

#include "platform/logging.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <poll.h>
#include <unistd.h>

namespace {

const int repeatValue = 2;

// libevdev writes its own complaints to standard error.
void logComplaint(const libevdev *, libevdev_log_priority, void *, const char *, int, const char *, const char *format,
                  va_list arguments)
{
    char text[200];
    vsnprintf(text, sizeof(text), format, arguments);
    Logging::log(Logging::LogTrace, "[keys] %s", text);
}

// A device that is gone fails when it is read; one behind a pipe only has no more.
bool isGone(int descriptor)
{
    pollfd state = {descriptor, POLLIN, 0};
    return poll(&state, 1, 0) == 1 && !(state.revents & POLLIN) && (state.revents & (POLLHUP | POLLERR | POLLNVAL));
}

void append(const input_event &event, std::vector<Board::KeyDevice::Event> *events)
{
    if (event.type != EV_KEY || event.value == repeatValue)
        return;
    const Board::KeyDevice::Event key = {event.code, event.value != 0};
    events->push_back(key);
}

}

bool Board::KeyDevice::isBuilt()
{
    return true;
}

int Board::KeyDevice::codeOf(const std::string &name)
{
    return libevdev_event_code_from_name(EV_KEY, name.c_str());
}

Board::KeyDevice::KeyDevice()
    : m_descriptor(-1),
      m_device(0)
{
}

Board::KeyDevice::~KeyDevice()
{
    if (m_device)
        libevdev_free(m_device);
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool Board::KeyDevice::open(const std::string &path, std::string *problem)
{
    m_descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (m_descriptor < 0) {
        *problem = std::strerror(errno);
        return false;
    }
    m_device = libevdev_new();
    if (!m_device) {
        *problem = std::strerror(ENOMEM);
        return false;
    }
    libevdev_set_device_log_function(m_device, logComplaint, LIBEVDEV_LOG_ERROR, 0);
    const int error = -libevdev_set_fd(m_device, m_descriptor);
    if (error != 0)
        *problem = std::strerror(error);
    return error == 0;
}

int Board::KeyDevice::descriptor() const
{
    return m_descriptor;
}

std::string Board::KeyDevice::name() const
{
    return libevdev_get_name(m_device);
}

bool Board::KeyDevice::hasKey(int code) const
{
    return libevdev_has_event_code(m_device, EV_KEY, static_cast<unsigned int>(code));
}

bool Board::KeyDevice::grab(std::string *problem)
{
    const int error = -libevdev_grab(m_device, LIBEVDEV_GRAB);
    if (error != 0)
        *problem = std::strerror(error);
    return error == 0;
}

bool Board::KeyDevice::read(std::vector<Event> *events)
{
    unsigned int flag = LIBEVDEV_READ_FLAG_NORMAL;
    for (;;) {
        input_event event;
        const int status = libevdev_next_event(m_device, flag, &event);
        if (status == LIBEVDEV_READ_STATUS_SUCCESS) {
            append(event, events);
        } else if (status == LIBEVDEV_READ_STATUS_SYNC) {
            // Events were lost: what follows is how the keys differ from what was read.
            if (flag == LIBEVDEV_READ_FLAG_SYNC)
                append(event, events);
            flag = LIBEVDEV_READ_FLAG_SYNC;
        } else if (status == -EAGAIN && flag == LIBEVDEV_READ_FLAG_SYNC) {
            flag = LIBEVDEV_READ_FLAG_NORMAL;
        } else if (status == -EAGAIN) {
            return !isGone(m_descriptor);
        } else if (status != -EINTR) {
            return false;
        }
    }
}
