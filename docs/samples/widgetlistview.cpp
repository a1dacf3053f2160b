#include "samples.h"

#include "platform/soundmanager.h"
#include "widgetlistview.h"

#include <QStandardItemModel>
#include <QStringListModel>

//! [widgetlistview_names]
static QAbstractItemModel *newNames(QObject *parent)
{
    QStringList names;
    for (int i = 1; i <= 1000; ++i)
        names += QString("Contact %1").arg(i);
    return new QStringListModel(names, parent);
}
//! [widgetlistview_names]

//! [widgetlistview_contacts]
static QAbstractItemModel *newContacts(QObject *parent)
{
    const char *const names[] = {"Ada Ashgrove", "Bruno Quellbach", "Carla Oakhaven",
                                 "Dario Larkenfield", "Edda Karlsvik"};
    QStandardItemModel *contacts = new QStandardItemModel(5, 1, parent);
    for (int row = 0; row < 5; ++row) {
        const QModelIndex contact = contacts->index(row, 0);
        contacts->setData(contact, QString(names[row]), WidgetListView::TitleRole);
        contacts->setData(contact, QStringList() << "Family" << "Friends" << "Work",
                          WidgetListView::ValuesRole);
        contacts->setData(contact, row % 3, WidgetListView::ValueIndexRole);
        contacts->setData(contact, true, WidgetListView::MoreDepthRole);
    }
    return contacts;
}
//! [widgetlistview_contacts]

//! [widgetlistview_list]
static WidgetListView *addList(QWidget *screen, QAbstractItemModel *model)
{
    WidgetListView *list = new WidgetListView(screen, SoundManager::getInstance());
    list->resize(220, 176);
    list->setTitle("Contacts", true);
    list->setTitleIcon("image: url(:/resource/images_l2/icon_contacts.png);");
    list->setModel(model);
    return list;
}
//! [widgetlistview_list]

SAMPLE(widgetlistview_titles, 220, 176, Paper)
{
    //! [widgetlistview_titles]
    addList(screen, newNames(screen))->setRowHeight(34);
    //! [widgetlistview_titles]
}

SAMPLE(widgetlistview_values, 220, 176, Paper)
{
    //! [widgetlistview_values]
    addList(screen, newContacts(screen));

    press(screen, Qt::Key_8);
    //! [widgetlistview_values]
}

SAMPLE(widgetlistview_value_changed, 220, 176, Paper)
{
    //! [widgetlistview_value_changed]
    addList(screen, newContacts(screen));

    press(screen, Qt::Key_8);
    press(screen, Qt::Key_6);  // sets ValueIndexRole in the model
    //! [widgetlistview_value_changed]
}

SAMPLE(widgetlistview_jump, 220, 176, Paper)
{
    //! [widgetlistview_jump]
    WidgetListView *list = addList(screen, newContacts(screen));
    list->m_useFunctionKeys = true;  // the digits are free then
    list->m_jumpToLetter = true;
    list->setKeyLetters(Qt::Key_3, "def3");

    press(screen, Qt::Key_3, 2);  // d, then e
    //! [widgetlistview_jump]
}

SAMPLE(widgetlistview_dimmed, 220, 176, Paper)
{
    //! [widgetlistview_dimmed]
    QAbstractItemModel *contacts = newContacts(screen);
    for (int row = 1; row < 3; ++row) {
        contacts->setData(contacts->index(row, 0), true, WidgetListView::TitleDimmedRole);
        contacts->setData(contacts->index(row, 0), true, WidgetListView::ValueDimmedRole);
    }
    addList(screen, contacts);
    //! [widgetlistview_dimmed]
}

SAMPLE(widgetlistview_mirrored, 220, 176, Paper)
{
    //! [widgetlistview_mirrored]
    WidgetListView *list = addList(screen, newContacts(screen));
    list->m_mirrored = true;
    //! [widgetlistview_mirrored]
}
