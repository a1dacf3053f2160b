#ifndef BENCHMARKS_PLAINKEYPAD_H
#define BENCHMARKS_PLAINKEYPAD_H

#include <QPalette>
#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;

/// The keypad in plain widgets: a line edit, and labels with palettes, frames and pixmaps. What it types, it types as
/// the library's does.
class PlainKeypad : public QWidget
{
public:
    explicit PlainKeypad(QWidget *parent);

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    QLabel *newLabel(const QRect &rect, int pointSize, const QPalette &palette);
    void addCells();
    void addKeys();
    void typeDigit(int key);
    void light(QLabel *label);

    QLineEdit *m_line;
    QLabel *m_keys[4][3];
    QLabel *m_lit = nullptr;
    QPalette m_restPalette;
    QPalette m_litPalette;
    QTimer m_multiTapTimer;
    QLabel *m_tappedKey = nullptr;
    int m_tap = 0;
};

#endif
