#ifndef SETTINGSMENU_H
#define SETTINGSMENU_H

#include "widgetclock.h"
#include "widgetlist.h"

#include <QStringList>

class WidgetListItem;

/// The settings of the device. Each is kept in a file as soon as it is changed.
class SettingsMenu : public WidgetList
{
    Q_OBJECT

public:
    explicit SettingsMenu(QWidget *parent);

    WidgetClock::Format hours() const;
    QString name() const;
    void setName(const QString &name);

Q_SIGNALS:
    void clockWanted();
    void nameWanted();

private Q_SLOTS:
    void takeOver();

private:
    WidgetListItem *addRow(const char *title);
    WidgetListItem *addSetting(const char *title, const QStringList &values);
    WidgetListItem *addDeeperRow(const char *title, const char *wanted);
    void showName(const QString &name);
    void muteClicks();
    void restore();
    void keep();
    bool write() const;

    WidgetListItem *m_hours;
    WidgetListItem *m_clicks;
    WidgetListItem *m_nameRow;
    QString m_name;
};

#endif
