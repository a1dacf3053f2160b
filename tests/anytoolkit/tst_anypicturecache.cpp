// The plug-in that keeps pictures: the toolkit can load it, and pictures look the same with it.

#include "anytoolkit.h"
#include "widgeticongroup.h"

#include <QIcon>
#include <QPainter>
#include <QPluginLoader>

class TestAnyPictureCache : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void canBeLoaded();
    void iconLooksLikeTheFile_data();
    void iconLooksLikeTheFile();
    void sheetShowsThePictureInTheMiddle();
};

static const char IconPath[] = ":/resource/images_l2/icon_sound.png";

// Where it is built, seen from the program.
static QString pluginDirectory()
{
    return QCoreApplication::applicationDirPath() + QLatin1String("/../plugins");
}

void TestAnyPictureCache::initTestCase()
{
    QCoreApplication::addLibraryPath(pluginDirectory());
}

void TestAnyPictureCache::canBeLoaded()
{
    QPluginLoader plugin(pluginDirectory() + QLatin1String("/iconengines/libwidgetpicturecache.so"));
    QVERIFY2(plugin.instance(), qPrintable(plugin.errorString()));
    QCOMPARE(QString(plugin.instance()->metaObject()->className()), QString("PictureCachePlugin"));
}

void TestAnyPictureCache::iconLooksLikeTheFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("with an alpha channel") << IconPath;
    QTest::newRow("small") << ":/resource/images_l2/arrow_next_nor.png";
    QTest::newRow("the banner") << ":/resource/images_l2/tna_bg.png";
}

void TestAnyPictureCache::iconLooksLikeTheFile()
{
    QFETCH(QString, path);
    const QImage file = QPixmap(path).toImage().convertToFormat(QImage::Format_ARGB32);
    QVERIFY(!file.isNull());
    // Asked again, it comes from the cache.
    for (int i = 0; i < 2; ++i) {
        const QIcon icon(path);
        QCOMPARE(icon.actualSize(QSize(1000, 1000)), file.size());
        QVERIFY(icon.pixmap(1000, 1000).toImage().convertToFormat(QImage::Format_ARGB32) == file);
    }
}

void TestAnyPictureCache::sheetShowsThePictureInTheMiddle()
{
    const QPixmap arrow(":/resource/images_l2/arrow_next_nor.png");
    for (int i = 0; i < 2; ++i) {
        Screen screen;
        screen.setStyleSheet("background-color: #f8f7f6;");
        WidgetIconGroup group(&screen, 0);
        group.setGeometry(0, 0, 122, 24);
        group.setIcon(0, "image: url(:/resource/images_l2/arrow_next_nor.png);");
        screen.showInFront();

        QImage expected(screen.size(), QImage::Format_RGB32);
        expected.fill(qRgb(0xf8, 0xf7, 0xf6));
        QPainter painter(&expected);
        painter.drawPixmap((20 - arrow.width()) / 2, 2 + (20 - arrow.height()) / 2, arrow);
        painter.end();
        QVERIFY(looksAs(&screen, expected));
    }
}

ANYTOOLKIT_MAIN(TestAnyPictureCache)

#include "tst_anypicturecache.moc"
