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

const Screens &allScreens()
{
    static const Screens screens = {
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
