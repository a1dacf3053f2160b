#ifndef WIDGETDETAILS_H
#define WIDGETDETAILS_H

// What the widgets share among themselves. Not part of the interface.

#include "threadshared.h"

#include <QFont>
#include <QString>

#include <ctime>

class QPainter;
class QPixmap;
class QRect;
class QSize;
class QThread;
class QWidget;

/// The key click of the whole library.
const int ClickSound = 901;

/// The toolkit's default font in \a pointSize, bold or in its own weight. No widget names a font family.
QFont defaultFont(int pointSize, bool bold);

/// The width in pixels of \a text on one line in \a font.
int textWidth(const QString &text, const QFont &font);

/// \a text if it is at most \a width pixels wide in \a font, otherwise cut with an ellipsis at the right.
QString fitText(const QString &text, const QFont &font, int width);

/// fitText() for a text that is asked for again and again: what did not change is not measured and not cut anew.
class FittedText
{
public:
    FittedText();

    /// The width in pixels of \a text on one line in \a font.
    int textWidth(const QString &text, const QFont &font);

    /// Whether \a text is at most \a width pixels wide in \a font.
    bool fits(const QString &text, const QFont &font, int width);

    /// \a text if it is at most \a width pixels wide in \a font, otherwise cut with an ellipsis at the right.
    QString fit(const QString &text, const QFont &font, int width);

private:
    void take(const QString &text, const QFont &font);

    QString m_text;
    QFont m_font;
    int m_widthAtMost;  // of m_text in m_font
    int m_textWidth;
    QString m_cutText;
    int m_cutWidth;  // what m_cutText was cut to
};

/// \a text turned left by \a offset characters: what leaves at the left comes back at the right.
QString turnedText(const QString &text, int offset);

/// Paints \a text as a label shows a plain text: the writing direction of the text decides which side is left.
void paintText(QPainter *painter, const QRect &rect, Qt::Alignment alignment, const QString &text);

/// The picture at \a path as an "image" of a sheet shows it in \a size: smaller where it is too large.
QPixmap pictureFor(const QSize &size, const QString &path);

/// Paints \a picture in the middle of \a place.
void paintPicture(QPainter *painter, const QRect &place, const QPixmap &picture);

/// Sets \a sheet on \a widget unless it is in place: the toolkit would parse it and dress the widget once more.
void applyStyleSheet(QWidget *widget, const QString &sheet);
void applyStyleSheet(QWidget *widget, const char *sheet);

/// Sets \a font on \a widget unless it is in place: the toolkit would resolve it, and note it for the style sheets, anew.
void applyFont(QWidget *widget, const QFont &font);

/// The rectangle at (\a x, \a y) with the size \a w by \a h. A size below zero is none. A size or a coordinate beyond
/// what the toolkit can count with is the last one that it can.
QRect boundedRect(qint64 x, qint64 y, qint64 w, qint64 h);
QRect boundedRect(const QRect &rect);

/// Gives \a widget that rectangle.
void placeWidget(QWidget *widget, qint64 x, qint64 y, int w, int h);

/// Shows \a child together with its parent. Unlike QWidget::show() this does not dress a child before it can be seen.
void showWithParent(QWidget *child);

/// Marks \a widget as no longer hidden and leaves it to its parent to show it.
void markShown(QWidget *widget);

/// Whether the focus is in \a widget, or will be when its window becomes active.
bool holdsFocus(const QWidget *widget);

/// The local time now, as a copy that no other thread writes to. May be called in any thread.
struct tm localTime();

/// Has \a thread end by setting \a stop, and returns when it has. It must clear \a stop at its end; a thread that does
/// not run never does, and the call does not return.
void stopThread(QThread *thread, ThreadShared<bool> *stop);

/// Log lines for calls that a widget rejects.
void rejectItem(const char *function, int line);
void rejectInvalidItem();
void rejectIndex(const char *sourcePath, const char *function, int index);

/// Whether \a index is outside 0 to \a count - 1; rejects it then.
bool rejectsIndex(const char *sourcePath, const char *function, int index, int count);

#endif
