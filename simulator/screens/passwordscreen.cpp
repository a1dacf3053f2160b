// Entering a password: nothing of it is to be seen or heard.

#include "device.h"
#include "screen.h"
#include "textentry.h"
#include "texts.h"

Screen passwordScreen()
{
    return {
        "password",
        "A password to enter with the keypad",
        [](Device &device) -> QWidget * {
            TextEntry *entry = new TextEntry(device, text("New password"));
            entry->startPassword(QString());
            QObject::connect(entry, &WidgetKeypad::ready, &device, [&device](const QString &password) {
                device.showMessage(password.isEmpty() ? text("No password") : text("Password set"));
            });
            return entry;
        },
        {
            {"", ""},
            {"first-key", "2"},
            {"typed", "7 2 2 # 4 2 wait:150"},
            {"deleted", "2 5 F4 wait:150"},
            {"one-capital", "F1 wait:150"},
            {"set", "2 3 OK"},
        },
    };
}
