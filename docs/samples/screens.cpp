// Screens of the simulator, for the start page.

#include "samples.h"

#include "device.h"
#include "screens.h"
#include "script.h"

static void open(QWidget *screen, const char *name, const char *keys = "")
{
    Device *device = new Device(allScreens(), KeyMode::Digits, screen);
    screen->show();
    device->start(QString::fromLatin1(name));
    QString error;
    play(parseScript(QString::fromLatin1(keys), &error), *device, 0);
}

SAMPLE(screen_home, 220, 176, Paper) { open(screen, "home"); }
SAMPLE(screen_settings, 220, 176, Paper) { open(screen, "settings", "down"); }
SAMPLE(screen_text, 220, 176, Paper) { open(screen, "text", "4 4 3 3 5 5 5 F3 5 5 5 6 6 6"); }
SAMPLE(screen_clock, 220, 176, Paper) { open(screen, "clock"); }
SAMPLE(screen_contacts, 220, 176, Paper) { open(screen, "contacts", "down"); }
SAMPLE(screen_radio, 220, 176, Paper) { open(screen, "radio"); }
