#include "devicepanel.h"

#include "device.h"

#include "platform/stringrc.h"

#include <QGroupBox>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const int NameRole = Qt::UserRole;

/// A group of two choices, of which \a first and \a second get the buttons.
QGroupBox *makeChoice(const char *title, const char *firstText, const char *secondText, QRadioButton **first,
                      QRadioButton **second)
{
    QGroupBox *group = new QGroupBox(QString::fromLatin1(title));
    QVBoxLayout *layout = new QVBoxLayout(group);
    *first = new QRadioButton(QString::fromLatin1(firstText), group);
    *second = new QRadioButton(QString::fromLatin1(secondText), group);
    layout->addWidget(*first);
    layout->addWidget(*second);
    return group;
}

}

DevicePanel::DevicePanel(Device &device, const QString &firstScreen, QWidget *parent)
    : QWidget(parent),
      m_device(device),
      m_screens(new QListWidget)
{
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(makeChoice("Up, down, left and right are", "2, 8, 4 and 6", "F1, F2, F3 and F4", &m_digits,
                                 &m_functions));
    layout->addWidget(makeChoice("Texts are written", "from left to right, in English", "from right to left, in Arabic",
                                 &m_leftToRight, &m_rightToLeft));
    QGroupBox *screens = new QGroupBox(QStringLiteral("Starts with"));
    QVBoxLayout *screensLayout = new QVBoxLayout(screens);
    screensLayout->addWidget(m_screens);
    layout->addWidget(screens, 1);

    m_screens->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const Screen &screen : device.screens()) {
        const QString name = QString::fromLatin1(screen.name);
        QListWidgetItem *item = new QListWidgetItem(QStringLiteral("%1: %2").arg(name, QString::fromLatin1(screen.description)),
                                                    m_screens);
        item->setData(NameRole, name);
        item->setToolTip(QString::fromLatin1(screen.description));
        if (name == firstScreen)
            m_screens->setCurrentItem(item);
    }

    m_digits->setChecked(device.keyMode() == KeyMode::Digits);
    m_functions->setChecked(device.keyMode() == KeyMode::Functions);
    m_leftToRight->setChecked(!StringRC::getInstance()->m_rightToLeft);
    m_rightToLeft->setChecked(StringRC::getInstance()->m_rightToLeft);

    connect(m_digits, &QRadioButton::clicked, this, [this] { setKeyMode(KeyMode::Digits); });
    connect(m_functions, &QRadioButton::clicked, this, [this] { setKeyMode(KeyMode::Functions); });
    for (QRadioButton *button : {m_leftToRight, m_rightToLeft}) {
        connect(button, &QRadioButton::clicked, this, [this] {
            setRightToLeft(m_rightToLeft->isChecked());
            restart();
        });
    }
    connect(m_screens, &QListWidget::itemClicked, this, &DevicePanel::restart);
}

void DevicePanel::setKeyMode(KeyMode mode)
{
    m_device.setKeyMode(mode);
    m_digits->setChecked(mode == KeyMode::Digits);
    m_functions->setChecked(mode == KeyMode::Functions);
    emit keyModeChanged(mode);
}

void DevicePanel::setRightToLeft(bool rightToLeft)
{
    StringRC::getInstance()->m_rightToLeft = rightToLeft;
    m_leftToRight->setChecked(!rightToLeft);
    m_rightToLeft->setChecked(rightToLeft);
    emit rightToLeftChanged(rightToLeft);
}

QString DevicePanel::firstScreen() const
{
    return m_screens->currentItem()->data(NameRole).toString();
}

void DevicePanel::restart()
{
    m_device.start(firstScreen());
}
