#ifndef QTCOMPAT_H
#define QTCOMPAT_H

// What differs between the versions of the toolkit, and nothing else.

#include <QFont>
#include <QFontMetrics>

// Accessible events tell the texts that have changed only since then.
#if QT_VERSION >= 0x050000 && !defined(QT_NO_ACCESSIBILITY)
#include <QAccessible>
#define HAS_ACCESSIBLE_TEXTS
#endif

inline int textWidth(const QFontMetrics &metrics, const QString &text)
{
#if QT_VERSION >= 0x050b00
    return metrics.horizontalAdvance(text);
#else
    return metrics.width(text);
#endif
}

inline int textWidth(const QFontMetrics &metrics, QChar character)
{
#if QT_VERSION >= 0x050b00
    return metrics.horizontalAdvance(character);
#else
    return metrics.width(character);
#endif
}

/// The attributes that were set on \a font itself, as bits.
inline uint resolveMask(const QFont &font)
{
#if QT_VERSION >= 0x060000
    return font.resolveMask();
#else
    return font.resolve();
#endif
}

#endif
