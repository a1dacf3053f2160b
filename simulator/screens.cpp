#include "screens.h"

Screen choiceScreen();
Screen clockScreen();
Screen contactsScreen();
Screen homeScreen();
Screen infoScreen();
Screen memoryScreen();
Screen moreScreen();
Screen notesScreen();
Screen passwordScreen();
Screen radioScreen();
Screen readerScreen();
Screen settingsScreen();
Screen soundScreen();
Screen textScreen();

const std::vector<Screen> &allScreens()
{
    static const std::vector<Screen> screens = {
        homeScreen(),
        radioScreen(),
        choiceScreen(),
        settingsScreen(),
        soundScreen(),
        clockScreen(),
        infoScreen(),
        textScreen(),
        passwordScreen(),
        notesScreen(),
        moreScreen(),
        readerScreen(),
        memoryScreen(),
        contactsScreen(),
    };
    return screens;
}

const Screen *findScreen(const QString &name)
{
    for (const Screen &screen : allScreens()) {
        if (name == QLatin1String(screen.name))
            return &screen;
    }
    return nullptr;
}
