#ifndef ICONENGINEVERSIONS_H
#define ICONENGINEVERSIONS_H

// What differs between the versions of the toolkit, and nothing else. Which functions of an icon engine are virtual
// differs too: see the declaration of PictureEngine.

#include <QCoreApplication>
#include <QPainter>
#include <QPixmap>

#if QT_VERSION >= 0x050000
#include <QGuiApplication>
#include <QIconEngine>
#include <QIconEnginePlugin>
typedef QIconEngine IconEngine;
typedef QIconEnginePlugin IconEnginePlugin;
#else
#include <QIconEnginePluginV2>
#include <QIconEngineV2>
typedef QIconEngineV2 IconEngine;
typedef QIconEnginePluginV2 IconEnginePlugin;
#endif

/// Whether a pixel of the pictures is a pixel of every screen.
inline bool hasPlainScreens()
{
#if QT_VERSION >= 0x050000
    const QGuiApplication *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    return application && application->devicePixelRatio() == 1;
#else
    return true;
#endif
}

/// How many pixels of a picture the toolkit's own engine puts where \a painter has one.
inline qreal pictureScale(const QPainter *painter)
{
#if QT_VERSION >= 0x060000
    return painter->device() ? painter->device()->devicePixelRatio() : 1;
#elif QT_VERSION >= 0x050600
    const bool scales = QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps);
    return scales && painter->device() ? painter->device()->devicePixelRatioF() : 1;
#else
    Q_UNUSED(painter);
    return 1;
#endif
}

/// What the engine of \a icon returns for pixels of \a size at \a scale, on plain screens.
inline QPixmap enginePixmap(const QIcon &icon, const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale)
{
#if QT_VERSION >= 0x060000
    // An icon multiplies by the scale before it asks its engine, unless that made the picture smaller.
    return scale > 1 ? icon.pixmap(size / scale, scale, mode, state) : icon.pixmap(size, 1, mode, state);
#else
    Q_UNUSED(scale);
    return icon.pixmap(size, mode, state);
#endif
}

#endif
