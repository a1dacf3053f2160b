#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetsimpletitle.h"

SAMPLE(widgetsimpletitle_short, 220, 38, Paper)
{
    //! [widgetsimpletitle_short]
    WidgetSimpleTitle *title = new WidgetSimpleTitle(screen, SoundManager::getInstance());
    title->setAttribute(Qt::WA_StyledBackground);  // or its ground is not painted
    title->setItemGeometry(WidgetSimpleTitle::ItemTitle, 10, 0, 200, 38);
    title->setTitle("Messages");
    //! [widgetsimpletitle_short]
}

SAMPLE(widgetsimpletitle_cut, 220, 38, Paper)
{
    //! [widgetsimpletitle_cut]
    WidgetSimpleTitle *title = new WidgetSimpleTitle(screen, SoundManager::getInstance());
    title->setAttribute(Qt::WA_StyledBackground);
    title->setItemGeometry(WidgetSimpleTitle::ItemTitle, 10, 0, 200, 38);
    title->setTitle("Messages of the last three months");
    //! [widgetsimpletitle_cut]
}
