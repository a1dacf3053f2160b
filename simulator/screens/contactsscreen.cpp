// A telephone book: a thousand rows that are painted from a model. Left and right change a contact's group, OK leads to
// its details or, where it has no number, to giving it one. Up and down may be held. Where F1 to F4 are the directions,
// the digits lead to names.

#include "contactsmodel.h"
#include "device.h"
#include "keypages.h"
#include "parts.h"
#include "rows.h"
#include "screen.h"
#include "textentry.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistview.h"

#include <QKeyEvent>
#include <QLabel>

namespace {

const QRect PositionPlace(140, 0, 72, 38);
const int PositionPointSize = 12;
const int DetailCount = 3;
const int DetailTitlePointSize = 14;
const int DetailTitleWidth = 172;
const int NumberLength = 20;

/// As on telephones, for the keys 0 to 9.
const char *const arabicKeys[] = {"0", "1", "بتةث2", "ءا3", "سشصض4", "دذرز5", "جحخ6", "نهوي7", "فقكلم8", "طظعغ9"};

/// What the \a digit key of the keypad types.
QString lettersOn(int digit)
{
    if (writesRightToLeft())
        return QString::fromUtf8(arabicKeys[digit]);
    const int key = digit == 0 ? 10 : digit - 1;
    return QString::fromUtf8(alphabets[0].smallLetters.keys[key / 3][key % 3]);
}

/// The contacts of \a device, which outlive the screen.
ContactsModel *contactsOf(const Device &device)
{
    ContactsModel *contacts = device.memory()->findChild<ContactsModel *>();
    return contacts ? contacts : new ContactsModel(device.memory());
}

class ContactsScreen : public WidgetListView
{
public:
    explicit ContactsScreen(Device &device);

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void enter(int row);
    void showDetails(const QModelIndex &contact);
    void enterNumber(const QModelIndex &contact);
    void showPosition();

    Device &m_device;
    QLabel *m_position;
};

ContactsScreen::ContactsScreen(Device &device)
    : WidgetListView(&device, SoundManager::getInstance()),
      m_device(device)
{
    setTitleBar(this, text("Contacts"), QStringLiteral("icon_contacts.png"));
    m_position = addLabel(this, placeForWriting(PositionPlace, Device::Width), PositionPointSize, false,
                          QStringLiteral("#F7CE86"));
    m_position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    m_mirrored = writesRightToLeft();
    m_enterOnOK = true;
    m_scrollOnHold = true;
    m_jumpToLetter = true;
    for (int digit = 0; digit <= 9; ++digit)
        setKeyLetters(Qt::Key_0 + digit, lettersOn(digit));
    setModel(contactsOf(device));

    connect(this, &WidgetListView::doEnter, this, &ContactsScreen::enter);
    connect(this, &Widget::finished, this, [this] { m_device.back(); });
}

void ContactsScreen::enter(int row)
{
    const QModelIndex contact = model()->index(row, 0);
    if (contact.data(ContactsModel::NumberRole).toString().isEmpty())
        enterNumber(contact);
    else
        showDetails(contact);
}

void ContactsScreen::showDetails(const QModelIndex &contact)
{
    WidgetList *details = new WidgetList(DetailCount, &m_device, SoundManager::getInstance());
    details->setNoFocusStyle(DetailCount);
    QFont font;
    font.setPointSize(DetailTitlePointSize);
    font.setBold(true);
    setTitleBar(details, QFontMetrics(font).elidedText(contact.data(TitleRole).toString(), Qt::ElideRight,
                                                       DetailTitleWidth),
                QStringLiteral("icon_contacts.png"));

    const bool isOnSimCard = contact.data(ContactsModel::OnSimCardRole).toBool();
    const QString group = contact.data(ValuesRole).toStringList().value(contact.data(ValueIndexRole).toInt());
    addOneLineRow(details, text("Number"), contact.data(ContactsModel::NumberRole).toString());
    addOneLineRow(details, text("Group"), isOnSimCard ? text("No group") : group);
    addOneLineRow(details, text("Stored on"), isOnSimCard ? text("SIM card") : text("Device"));
    connect(details, &Widget::finished, &m_device, [this] { m_device.back(); });
    m_device.push(details);
}

void ContactsScreen::enterNumber(const QModelIndex &contact)
{
    TextEntry *entry = new TextEntry(m_device, text("Number"));
    entry->setKeyMaxLength(NumberLength);
    entry->startNumber(QString());
    connect(entry, &WidgetKeypad::ready, this, [this, item = QPersistentModelIndex(contact)](const QString &number) {
        model()->setData(item, number, ContactsModel::NumberRole);
    });
    m_device.push(entry);
}

void ContactsScreen::showPosition()
{
    m_position->setText(fromWritingSide(QStringLiteral("%1/%2").arg(selectedRow() + 1).arg(model()->rowCount())));
}

void ContactsScreen::showEvent(QShowEvent *event)
{
    WidgetListView::showEvent(event);
    showPosition();
}

void ContactsScreen::keyPressEvent(QKeyEvent *event)
{
    WidgetListView::keyPressEvent(event);
    showPosition();
}

void ContactsScreen::keyReleaseEvent(QKeyEvent *event)
{
    WidgetListView::keyReleaseEvent(event);
    if (isVisible())
        showPosition();
}

}

Screen contactsScreen()
{
    return {
        "contacts",
        "A telephone book of a thousand rows, painted from a model",
        [](Device &device) -> QWidget * { return new ContactsScreen(device); },
        {
            {"", ""},
            {"group-changed", "down right"},
            {"not-modifiable", "down down right"},
            {"no-number", "down down down down down"},
            {"number-editing", "down down down down down OK 0 5 5 5 wait:150"},
            {"number-given", "down down down down down OK 0 5 5 5 wait:150 OK"},
            {"details", "OK"},
            {"sim-card-details", "down down OK"},
            {"back-from-details", "down down OK ESC"},
            {"letter", "6", false, true},
            {"letter-pressed-again", "8 8", false, true},
            {"long-name", "down down down down down down down down"},
            {"long-name-scrolling", "down down down down down down down wait:300"},
            {"last-row", "up"},
            {"right-to-left", "", true},
            {"right-to-left-letter", "8", true, true},
            {"right-to-left-details", "OK", true},
        },
    };
}
