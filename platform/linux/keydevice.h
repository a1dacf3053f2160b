#ifndef KEYDEVICE_H
#define KEYDEVICE_H

#include <string>
#include <vector>

struct libevdev;

namespace Board {

/// One Linux input device.
class KeyDevice
{
public:
    struct Event
    {
        int code;
        bool isPress;
    };

    /// Whether this program was built to read devices at all.
    static bool isBuilt();

    /// The code of the kernel's key \a name, such as "KEY_OK", or -1.
    static int codeOf(const std::string &name);

    KeyDevice();
    ~KeyDevice();

    /// Opens the device at \a path. Where it cannot, says why in \a problem.
    bool open(const std::string &path, std::string *problem);

    int descriptor() const;
    std::string name() const;
    bool hasKey(int code) const;

    /// Takes the device for this process alone. Where it cannot, says why in \a problem.
    bool grab(std::string *problem);

    /// Appends what has happened to \a events. Returns false when the device is gone.
    bool read(std::vector<Event> *events);

private:
    KeyDevice(const KeyDevice &);
    KeyDevice &operator=(const KeyDevice &);

    int m_descriptor;
    libevdev *m_device;
};

}

#endif
