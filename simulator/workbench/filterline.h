#ifndef FILTERLINE_H
#define FILTERLINE_H

#include <QLineEdit>
#include <QPointer>
#include <QSet>
#include <QWindow>

/// A line to type into that leaves the focus where it is: on the device, which must notice nothing.
///
/// A click begins to type. Return, Esc, a click elsewhere and another window end it; Esc empties the line too.
class FilterLine : public QLineEdit
{
public:
    explicit FilterLine(QWidget *parent = nullptr);

    bool isTyping() const { return m_window; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void begin();
    void end();
    bool takeKey(QKeyEvent *event);

    QPointer<QWindow> m_window;  // the one whose keys are taken, while they are
    QSet<quint32> m_keysDown;
};

#endif
