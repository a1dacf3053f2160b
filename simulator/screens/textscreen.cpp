// A message to write with the keypad.

#include "device.h"
#include "screen.h"
#include "textentry.h"
#include "texts.h"

Screen textScreen()
{
    return {
        "text",
        "A message to write with the keypad",
        [](Device &device) -> QWidget * {
            TextEntry *entry = new TextEntry(device, text("Your message"));
            entry->startText(QString());
            QObject::connect(entry, &WidgetKeypad::ready, &device, [&device](const QString &message) {
                device.showMessage(message.isEmpty() ? text("Nothing to send") : text("Message sent"));
            });
            return entry;
        },
        {
            {"", ""},
            {"first-letter", "4 4"},
            {"small-letters", "4 4 3 3 5 5 5"},
            {"space", "4 4 F3 F3 wait:150"},
            {"one-capital", "4 4 3 3 5 5 5 F3 5 5 5 6 6 6 F3 F3 wait:150 F1 wait:150 9"},
            {"hello-world-42", "4 4 3 3 5 5 5 F3 5 5 5 6 6 6 F3 F3 wait:150 F1 wait:150 9 6 6 6 7 7 7 5 5 5 3 F3 F3 "
                               "# 4 2 wait:150"},
            {"capitals", "F1 wait:150"},
            {"digits", "# # 4 2 wait:150"},
            {"symbols", "* 3 3"},
            {"greek", "F2 wait:150 5 5 2 2 2 2 5 5 5"},
            {"greek-small-letters", "F2 # wait:150"},
            {"cyrillic", "F2 F2 wait:150 7 6 6 7"},
            {"cyrillic-small-letters", "F2 F2 # wait:150"},
            {"next-sentence", "6 6 6 5 5 1 F3 F3 wait:150"},
            {"full", "# # 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 "
                     "1 2 3 4 5 6 7 8 wait:150"},
            {"sent", "6 6 6 5 5 OK"},
            {"right-to-left", "", true},
        },
    };
}
