#ifndef FORMTIME_H
#define FORMTIME_H

#include "widgetclock.h"
#include "widgetdate.h"

#include <QStringList>

/// A WidgetClock for forms, with the default pictures. Let it run by setRunning() alone, not by start() and stop(): it
/// then shows the time at once, and may be destroyed while it runs.
class FormClock : public WidgetClock
{
    Q_OBJECT
    Q_PROPERTY(QString digitSheet READ digitSheet WRITE setDigitSheet)
    Q_PROPERTY(QString smallDigitSheet READ smallDigitSheet WRITE setSmallDigitSheet)
    Q_PROPERTY(QString seperatorSheet READ seperatorSheet WRITE setSeperatorSheet)
    Q_PROPERTY(QString amSheet READ amSheet WRITE setAmSheet)
    Q_PROPERTY(QString pmSheet READ pmSheet WRITE setPmSheet)
    Q_PROPERTY(bool running READ isRunning WRITE setRunning)

public:
    explicit FormClock(QWidget *parent = 0);
    virtual ~FormClock();

    /// The sheet of a large digit, with %1 where the digit stands in it.
    QString digitSheet() const { return m_digitSheet; }
    void setDigitSheet(const QString &sheet);

    /// The sheet of a small digit, with %1 where the digit stands in it.
    QString smallDigitSheet() const { return m_smallDigitSheet; }
    void setSmallDigitSheet(const QString &sheet);

    QString seperatorSheet() const { return m_seperatorSheet; }
    void setSeperatorSheet(const QString &sheet);

    QString amSheet() const { return m_amSheet; }
    void setAmSheet(const QString &sheet);
    QString pmSheet() const { return m_pmSheet; }
    void setPmSheet(const QString &sheet);

    /// Whether the clock keeps itself current; false at first.
    bool isRunning() const { return m_isRunning; }
    void setRunning(bool running);

    virtual QSize sizeHint() const { return QSize(186, 68); }

private Q_SLOTS:
    void showNow();

private:
    QString m_digitSheet;
    QString m_smallDigitSheet;
    QString m_seperatorSheet;
    QString m_amSheet;
    QString m_pmSheet;
    bool m_isRunning;
};

/// A WidgetDate for forms, with English week days at first. Let it run by setRunning() alone, as a FormClock.
class FormDate : public WidgetDate
{
    Q_OBJECT
    Q_PROPERTY(QStringList weekDays READ weekDays WRITE setWeekDays)
    Q_PROPERTY(int pointSize READ pointSize WRITE setPointSize)
    Q_PROPERTY(bool running READ isRunning WRITE setRunning)

public:
    explicit FormDate(QWidget *parent = 0);
    virtual ~FormDate();

    /// The names of the week days, from Sunday on.
    QStringList weekDays() const { return m_weekDays; }
    void setWeekDays(const QStringList &names);

    /// The size of the texts, 16 points at first.
    int pointSize() const { return m_pointSize; }
    void setPointSize(int pointSize);

    /// Whether the date keeps itself current; false at first.
    bool isRunning() const { return m_isRunning; }
    void setRunning(bool running);

    virtual QSize sizeHint() const { return QSize(180, 22); }

private Q_SLOTS:
    void showNow();

private:
    QStringList m_weekDays;
    int m_pointSize;
    bool m_isRunning;
};

#endif
