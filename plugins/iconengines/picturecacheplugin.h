#ifndef PICTURECACHEPLUGIN_H
#define PICTURECACHEPLUGIN_H

#include "iconengineversions.h"
#include "picturecache.h"

/// Makes the icons of PNG files, among them those that a style sheet names, from pictures that are in memory already,
/// where these are resources of the application. All other files are left to the toolkit, as are icons in threads and
/// screens that put more than one pixel where a picture has one.
///
/// There is nothing to see of it: icons look and answer as they do without, only sooner.
class PictureCachePlugin : public IconEnginePlugin
{
    Q_OBJECT
#if QT_VERSION >= 0x050000
    Q_PLUGIN_METADATA(IID QIconEngineFactoryInterface_iid FILE "picturecache.json")
#endif

public:
#if QT_VERSION < 0x050000
    QStringList keys() const;
#endif
    IconEngine *create(const QString &path);

private:
    PictureCache m_cache;
};

#endif
