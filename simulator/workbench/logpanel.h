#ifndef LOGPANEL_H
#define LOGPANEL_H

#include <QStandardItemModel>
#include <QWidget>

class FilterLine;
class LogFilter;
class QButtonGroup;
class QListView;

/// The lines of the log as they come, or those of them that a level and a text leave.
class LogPanel : public QWidget
{
    Q_OBJECT

public:
    explicit LogPanel(QWidget *parent = nullptr);
    ~LogPanel() override;

    /// Shows and logs the lines whose level is at most \a level, one of Desktop::setLogLevel().
    void setLevel(int level);

    /// Shows the lines that contain \a text, in whatever case.
    void setText(const QString &text);
    QString text() const;

    /// The lines to copy: those that are selected, or else all that are shown.
    QStringList lines() const;

Q_SIGNALS:
    void levelChanged(int level);
    void textChanged(const QString &text);

private:
    void add(int level, const QString &line);
    void copy();

    QStandardItemModel m_lines;
    LogFilter *m_filter;
    QButtonGroup *m_levels;
    FilterLine *m_text;
    QListView *m_view;
};

#endif
