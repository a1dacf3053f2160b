#ifndef PICTUREENGINE_H
#define PICTUREENGINE_H

#include "iconengineversions.h"

#include <QIcon>

/// While one lives, all new icons are the toolkit's own.
class ToolkitIcons
{
public:
    ToolkitIcons();
    ~ToolkitIcons();

    static bool areWanted();
};

/// An engine that looks and answers like the toolkit's own, because it hands every question on to an icon of the
/// toolkit. That icon may be shared: it is left alone as soon as something is added.
class PictureEngine : public IconEngine
{
public:
    /// \a icon is what adding the file \a path gives.
    PictureEngine(const QIcon &icon, const QString &path);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state);
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state);
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state);
    void addPixmap(const QPixmap &pixmap, QIcon::Mode mode, QIcon::State state);
    void addFile(const QString &path, const QSize &size, QIcon::Mode mode, QIcon::State state);
    QString key() const;
    IconEngine *clone() const;
    bool write(QDataStream &out) const;

#if QT_VERSION >= 0x060000
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state);
    QString iconName();
    bool isNull();
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale);
#else
    void virtual_hook(int id, void *data);
#endif

private:
    QPixmap look(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) const;

    QIcon m_icon;
    QString m_expectedPath;  // of the file that is in the icon already; empty when that was added
};

#endif
