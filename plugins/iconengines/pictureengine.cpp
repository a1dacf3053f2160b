#include "pictureengine.h"

#include <QApplication>
#include <QDataStream>
#include <QIODevice>
#include <QPixmapCache>
#include <QPointer>
#include <QStyle>

namespace {

int s_wishesForToolkitIcons = 0;

/// The toolkit keeps what a style makes of a picture, a disabled one for instance, for as long as the picture lives.
/// By itself it hardly shows, as each icon has a picture of its own; in a shared one, an old style would live on.
void forgetLooksOfAnotherStyle()
{
    static QPointer<QStyle> s_style;
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()) || s_style == QApplication::style())
        return;
    s_style = QApplication::style();
    QPixmapCache::clear();
}

}

ToolkitIcons::ToolkitIcons()
{
    ++s_wishesForToolkitIcons;
}

ToolkitIcons::~ToolkitIcons()
{
    --s_wishesForToolkitIcons;
}

bool ToolkitIcons::areWanted()
{
    return s_wishesForToolkitIcons > 0;
}

PictureEngine::PictureEngine(const QIcon &icon, const QString &path)
    : m_icon(icon)
    , m_expectedPath(path)
{
}

void PictureEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    // Not by the icon's paint(), which would fit the picture into the rectangle once more.
    const qreal scale = pictureScale(painter);
    painter->drawPixmap(rect, look(rect.size() * scale, mode, state, scale));
}

QSize PictureEngine::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return m_icon.actualSize(size, mode, state);
}

QPixmap PictureEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return look(size, mode, state, 1);
}

QPixmap PictureEngine::look(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) const
{
    if (mode != QIcon::Normal)
        forgetLooksOfAnotherStyle();
    return enginePixmap(m_icon, size, mode, state, scale);
}

void PictureEngine::addPixmap(const QPixmap &pixmap, QIcon::Mode mode, QIcon::State state)
{
    m_icon.addPixmap(pixmap, mode, state);
}

void PictureEngine::addFile(const QString &path, const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    if (!m_expectedPath.isEmpty()) {
        const bool isInIcon = path == m_expectedPath && !size.isValid() && mode == QIcon::Normal && state == QIcon::Off;
        m_expectedPath.clear();
        if (isInIcon)
            return;
        m_icon = QIcon();
    }
    const ToolkitIcons wish;
    m_icon.addFile(path, size, mode, state);
}

QString PictureEngine::key() const
{
    // What is written to a stream can be read without this plug-in, by the toolkit's own engine.
    return QLatin1String("QPixmapIconEngine");
}

IconEngine *PictureEngine::clone() const
{
    return new PictureEngine(*this);
}

bool PictureEngine::write(QDataStream &out) const
{
    QByteArray written;
    QDataStream stream(&written, QIODevice::ReadWrite);
    stream.setVersion(out.version());
    stream.setByteOrder(out.byteOrder());
    stream << m_icon;

    // The icon writes the key of its engine first.
    stream.device()->seek(0);
    QString key;
    stream >> key;
    const int start = int(stream.device()->pos());
    const int size = written.size() - start;
    return out.writeRawData(written.constData() + start, size) == size;
}

#if QT_VERSION >= 0x060000

QList<QSize> PictureEngine::availableSizes(QIcon::Mode mode, QIcon::State state)
{
    return m_icon.availableSizes(mode, state);
}

QString PictureEngine::iconName()
{
    return m_icon.name();
}

bool PictureEngine::isNull()
{
    return m_icon.isNull();
}

QPixmap PictureEngine::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale)
{
    return look(size, mode, state, scale);
}

#else

void PictureEngine::virtual_hook(int id, void *data)
{
    switch (id) {
    case AvailableSizesHook: {
        AvailableSizesArgument *argument = static_cast<AvailableSizesArgument *>(data);
        argument->sizes = m_icon.availableSizes(argument->mode, argument->state);
        break;
    }
    case IconNameHook:
        *static_cast<QString *>(data) = m_icon.name();
        break;
#if QT_VERSION >= 0x050700
    case IsNullHook:
        *static_cast<bool *>(data) = m_icon.isNull();
        break;
#endif
    default:
        IconEngine::virtual_hook(id, data);
    }
}

#endif
