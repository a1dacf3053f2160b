#ifndef TITLELOOK_H
#define TITLELOOK_H

// How title bars look, written once for the one whose parts are labels and the one that is painted. Not part of the
// interface.

#include <QFont>
#include <QRect>
#include <QString>

#define TITLE_COLOUR "#FFFFFF"
#define TITLE_BAR_COLOUR "#474242"

const QRect TitleBarRect(0, 0, 220, 38);
const int TitlePointSize = 14;
const int TitlePadding = 1;

/// The place of the icon, with its padding; \a mirrored where texts are written from right to left.
QRect titleIconRect(bool mirrored);
QRect titleTextRect(bool mirrored);
QRect titleInfoRect(bool mirrored);

const int TitleIconPadding = 3;

/// The icon's, before anything is added.
QString titleIconSheet();

const Qt::Alignment TitleTextAlignment = Qt::AlignLeft | Qt::AlignVCenter;
const Qt::Alignment TitleInfoAlignment = Qt::AlignRight | Qt::AlignTop;

/// \a sheet with \a style at its end, unless it occurs there already as a piece of text, in whatever case.
QString withStyle(const QString &sheet, const QString &style);

#endif
