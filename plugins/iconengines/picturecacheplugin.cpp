#include "picturecacheplugin.h"

#include "pictureengine.h"

#include <QStringList>
#include <QThread>

#if QT_VERSION < 0x050000
Q_EXPORT_PLUGIN2(widgetpicturecache, PictureCachePlugin)

QStringList PictureCachePlugin::keys() const
{
    return QStringList(QLatin1String("png"));
}
#endif

/// Returns 0 for what is left to the toolkit, which then takes its own engine.
IconEngine *PictureCachePlugin::create(const QString &path)
{
    const QCoreApplication *application = QCoreApplication::instance();
    if (!application || application->thread() != QThread::currentThread() || ToolkitIcons::areWanted())
        return 0;
    if (!path.startsWith(QLatin1String(":/")) || !hasPlainScreens())
        return 0;
    const QIcon icon = m_cache.icon(path);
    return icon.isNull() ? 0 : new PictureEngine(icon, path);
}
