// The plug-in that keeps the pictures of resources, beside the toolkit's own icons. These come from the same resources,
// found by the prefix of a search path: such names the plug-in leaves to the toolkit.

#include <QtTest>

#include <QApplication>
#include <QIcon>
#include <QImageIOPlugin>
#include <QLabel>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QResource>
#include <QStyleFactory>
#include <QVBoxLayout>

#include <functional>
#include <memory>
#include <thread>
#include <vector>

// A plug-in of the toolkit that is asked who reads a picture, before the toolkit does it by itself.
class ReaderCount : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "picturecache/readercount.json")

public:
    Capabilities capabilities(QIODevice *device, const QByteArray &) const override
    {
        if (device)
            ++s_readers;
        return {};
    }
    QImageIOHandler *create(QIODevice *, const QByteArray &) const override { return nullptr; }

    static int s_readers;
};

int ReaderCount::s_readers = 0;

Q_IMPORT_PLUGIN(ReaderCount)

namespace {

const QIcon::Mode modes[] = {QIcon::Normal, QIcon::Disabled, QIcon::Active, QIcon::Selected};
const QIcon::State states[] = {QIcon::Off, QIcon::On};
const QSize sizes[] = {{47, 33}, {46, 33}, {20, 20}, {20, 14}, {19, 14}, {16, 16}, {10, 40}, {40, 10},
                       {100, 100}, {3, 200}, {65536, 65536}};

const char *const pictures[] = {"photo", "dot", "indexed", "grey", "bits", "deep", "opaque", "jpeg", "bitmap",
                                "screen", "large", "cut", "broken", "text", "empty", "photo@2x", "missing"};

QIcon g_outlivesTheApplication;

const QString Kept = QStringLiteral(":/pictures/");
const QString OfToolkit = QStringLiteral("toolkit:");

QString path(const QString &place, const char *name) { return place + QLatin1String(name) + ".png"; }
QString kept(const char *name) { return path(Kept, name); }
QString ofToolkit(const char *name) { return path(OfToolkit, name); }

/// Pictures are left to the toolkit on screens that put several pixels where a picture has one.
bool hasPlainScreen() { return qApp->devicePixelRatio() == 1; }

/// What tells the picture that was read from all others. Large, so that it is not scaled.
qint64 pictureKey(const QIcon &icon) { return icon.pixmap(1000, 1000).cacheKey(); }

/// Whether icons of the file \a path share what was read of it.
bool isKept(const QString &path)
{
    const QIcon first(path);
    const QIcon second(path);
    return pictureKey(first) == pictureKey(second);
}

int readersOf(const std::function<void()> &action)
{
    ReaderCount::s_readers = 0;
    action();
    return ReaderCount::s_readers;
}

QString name(QSize size) { return QStringLiteral("%1x%2").arg(size.width()).arg(size.height()); }

/// What differs between two icons, empty if nothing does.
QString difference(const QIcon &actual, const QIcon &expected)
{
    if (actual.isNull() != expected.isNull())
        return "isNull";
    if (actual.name() != expected.name())
        return "name";
    for (QIcon::Mode mode : modes) {
        for (QIcon::State state : states) {
            if (actual.availableSizes(mode, state) != expected.availableSizes(mode, state))
                return QStringLiteral("available sizes, mode %1, state %2").arg(mode).arg(state);
            for (QSize size : sizes) {
                const QString place = QStringLiteral(" %1, mode %2, state %3").arg(name(size)).arg(mode).arg(state);
                if (actual.actualSize(size, mode, state) != expected.actualSize(size, mode, state))
                    return "actual size" + place;
                const QPixmap picture = actual.pixmap(size, mode, state);
                const QPixmap other = expected.pixmap(size, mode, state);
                if (picture.toImage() != other.toImage() || picture.devicePixelRatio() != other.devicePixelRatio())
                    return "pixmap" + place;
#if QT_VERSION >= 0x060000
                for (qreal ratio : {0.5, 1.0, 1.5, 2.0, 3.0}) {
                    const QPixmap scaled = actual.pixmap(size, ratio, mode, state);
                    const QPixmap otherScaled = expected.pixmap(size, ratio, mode, state);
                    if (scaled.toImage() != otherScaled.toImage()
                            || scaled.devicePixelRatio() != otherScaled.devicePixelRatio()) {
                        return QStringLiteral("scaled pixmap, ratio %1,").arg(ratio) + place;
                    }
                }
#endif
            }
        }
    }
    return QString();
}

QImage painted(const QIcon &icon, QRect rectangle, qreal ratio, Qt::Alignment alignment, QIcon::Mode mode,
               Qt::LayoutDirection direction = Qt::LeftToRight)
{
    QImage image(QSize(120, 120) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::darkCyan);
    QPainter painter(&image);
    painter.setLayoutDirection(direction);
    icon.paint(&painter, rectangle, alignment, mode);
    return image;
}

/// Whether icons use the pixels of devices that have several per point; they always do since version 6.
void setScaling(bool scales)
{
#if QT_VERSION < 0x060000
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, scales);
#else
    Q_UNUSED(scales);
#endif
}

QByteArray written(const QIcon &icon, QDataStream::Version version, QDataStream::ByteOrder order)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(version);
    stream.setByteOrder(order);
    stream << icon << QString("behind");
    return bytes;
}

QIcon readBack(const QByteArray &bytes, QDataStream::Version version, QDataStream::ByteOrder order)
{
    QDataStream stream(bytes);
    stream.setVersion(version);
    stream.setByteOrder(order);
    QIcon icon;
    QString behind;
    stream >> icon >> behind;
    return behind == "behind" && stream.atEnd() ? icon : QIcon();
}

/// Has a look of its own for each mode, in one colour.
class ColouringStyle : public QProxyStyle
{
public:
    explicit ColouringStyle(QColor color) : m_color(color) {}

    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap, const QStyleOption *) const override
    {
        QPixmap colored(pixmap.size());
        colored.fill(m_color.lighter(100 + 20 * mode));
        return colored;
    }

private:
    QColor m_color;
};

/// A resource file that a test registers at run time, at an address that it chooses.
QByteArray resourceFile(const char *name)
{
    QFile file(QStringLiteral(RESOURCE_DIRECTORY "/%1.rcc").arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const uchar *bytesOf(const QByteArray &file) { return reinterpret_cast<const uchar *>(file.constData()); }

QColor middleOf(const QIcon &icon)
{
    const QImage image = icon.pixmap(8, 8).toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

/// A change to an icon, with files from a place.
using Change = std::function<void(QIcon &, const QString &place)>;

}

Q_DECLARE_METATYPE(Change)

class TestPictureCache : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void pictureIsReadOnce();
    void pictureInAStyleSheetIsKept();
    void everyNameOfAPngResourceIsKept_data();
    void everyNameOfAPngResourceIsKept();
    void otherFilesAreNotKept_data();
    void otherFilesAreNotKept();
    void fileThatChangesShowsAtOnce_data();
    void fileThatChangesShowsAtOnce();
    void resourceThatChangesShowsAtOnce_data();
    void resourceThatChangesShowsAtOnce();
    void resourceThatIsGoneIsMissing();
    void iconOutlivesItsResource();
    void threadsGetTheToolkitsOwn();

    void looksLikeTheToolkitsOwn_data();
    void looksLikeTheToolkitsOwn();
    void isPaintedLikeTheToolkitsOwn_data();
    void isPaintedLikeTheToolkitsOwn();
    void takesMoreLikeTheToolkitsOwn_data();
    void takesMoreLikeTheToolkitsOwn();
    void isWrittenLikeTheToolkitsOwn_data();
    void isWrittenLikeTheToolkitsOwn();
    void labelLooksTheSame_data();
    void labelLooksTheSame();
    void buttonLooksTheSame();
    void anotherStyleShowsAtOnce();
    void anotherPaletteShowsAtOnce();

    void largestPicturesAreNotKept();
    void leastUsedPicturesGo();
    void iconOutlivesTheApplication();
};

void TestPictureCache::cleanup()
{
    setScaling(false);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
}

void TestPictureCache::pictureIsReadOnce()
{
    // Under a name of its own, so that no other test has had it read.
    const QString path = ":/pictures/./photo.png";
    const int readersOfToolkit = readersOf([] { QIcon(ofToolkit("photo")).pixmap(20, 20); });
    QVERIFY(readersOfToolkit > 0);
    QCOMPARE(readersOf([] { QIcon(ofToolkit("photo")).pixmap(20, 20); }), readersOfToolkit);

    QVERIFY(readersOf([&] { QIcon(path).pixmap(20, 20); }) > 0);
    const int readersAgain = readersOf([&] {
        for (QIcon::Mode mode : modes)
            QIcon(path).pixmap(10, 10, mode);
    });
    QCOMPARE(readersAgain == 0, hasPlainScreen());
}

void TestPictureCache::pictureInAStyleSheetIsKept()
{
    const auto readersOfSheet = [](const QString &path) {
        QLabel label;
        label.resize(60, 60);
        label.setStyleSheet(QStringLiteral("image: url(%1)").arg(path));
        label.grab();
        return readersOf([&] {
            label.setStyleSheet(QStringLiteral("image: url(%1) ").arg(path));
            label.grab();
        });
    };
    const int readersOfToolkit = readersOfSheet(ofToolkit("photo"));
    if (hasPlainScreen())
        QVERIFY2(readersOfSheet(kept("photo")) < readersOfToolkit, qPrintable(QString::number(readersOfToolkit)));
    else
        QVERIFY(readersOfSheet(kept("photo")) > 0);
}

void TestPictureCache::everyNameOfAPngResourceIsKept_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << ":/pictures/photo.png";
    QTest::newRow("in capitals") << ":/pictures/capital.PNG";
    QTest::newRow("another way to it") << ":/pictures/../pictures//photo.png";
    QTest::newRow("a JPEG file under this name") << ":/pictures/jpeg.png";
    QTest::newRow("known by its contents") << ":/pictures/nosuffix";
}

void TestPictureCache::everyNameOfAPngResourceIsKept()
{
    QFETCH(QString, path);
    if (QImage(path).isNull())
        QSKIP("The toolkit here does not read JPEG files.");
    QCOMPARE(isKept(path), hasPlainScreen());
}

void TestPictureCache::otherFilesAreNotKept_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("another suffix") << ":/pictures/photo.bin";
    QTest::newRow("file on disk") << "photo.png";
    QTest::newRow("file on disk, from the root") << "%1/photo.png";
    QTest::newRow("file on disk, found by a prefix") << "disk:photo.png";
    QTest::newRow("resource, found by a prefix") << ofToolkit("photo");
}

void TestPictureCache::otherFilesAreNotKept()
{
    QFETCH(QString, path);
    QTemporaryDir directory;
    QVERIFY(QFile::copy(kept("photo"), directory.filePath("photo.png")));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(directory.path()));
    QDir::setSearchPaths("disk", {directory.path()});
    const QString file = path.contains('%') ? path.arg(directory.path()) : path;
    const bool shared = isKept(file);
    QVERIFY(QDir::setCurrent(before));
    QDir::setSearchPaths("disk", {});
    QVERIFY(!shared);
}

void TestPictureCache::fileThatChangesShowsAtOnce_data()
{
    QTest::addColumn<bool>("hasNamesake");
    QTest::newRow("by itself") << false;
    QTest::newRow("beside a resource of the same path") << true;
}

void TestPictureCache::fileThatChangesShowsAtOnce()
{
    QFETCH(bool, hasNamesake);
    QTemporaryDir directory;
    QVERIFY(QDir(directory.path()).mkdir("changing"));
    const QString path = directory.filePath("changing/picture.png");
    const QByteArray namesake = resourceFile("red");
    if (hasNamesake) {
        QVERIFY(QResource::registerResource(bytesOf(namesake), directory.path()));
        QVERIFY(QFile::exists(':' + path));
    }
    QList<QColor> shown;
    for (Qt::GlobalColor color : {Qt::green, Qt::blue}) {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(color);
        QVERIFY(image.save(path));
        shown += middleOf(QIcon(path));
    }
    if (hasNamesake)
        QVERIFY(QResource::unregisterResource(bytesOf(namesake), directory.path()));
    QCOMPARE(shown, QList<QColor>({Qt::green, Qt::blue}));
}

void TestPictureCache::resourceThatChangesShowsAtOnce_data()
{
    QTest::addColumn<bool>("samePlace");
    QTest::newRow("elsewhere in memory") << false;
    QTest::newRow("at the same address, in the same length") << true;
}

void TestPictureCache::resourceThatChangesShowsAtOnce()
{
    QFETCH(bool, samePlace);
    const QByteArray red = resourceFile("red");
    const QByteArray blue = resourceFile("blue");
    QVERIFY(!red.isEmpty());
    QCOMPARE(blue.size(), red.size());

    const QString path = ":/changing/picture.png";
    const QColor redColor(0xc0, 0x20, 0x20);
    const QColor blueColor(0x20, 0x20, 0xc0);
    std::vector<uchar> place(bytesOf(red), bytesOf(red) + red.size());
    QVERIFY(QResource::registerResource(place.data()));
    const uchar *const address = QResource(path).data();
    QIcon before(path);
    QCOMPARE(middleOf(before), redColor);
    QCOMPARE(isKept(path), hasPlainScreen());
    QVERIFY(QResource::unregisterResource(place.data()));

    std::vector<uchar> otherPlace(place.size());
    std::vector<uchar> &placeOfBlue = samePlace ? place : otherPlace;
    std::copy(blue.begin(), blue.end(), placeOfBlue.begin());
    QVERIFY(QResource::registerResource(placeOfBlue.data()));
    QCOMPARE(QResource(path).data() == address, samePlace);
    const QColor after = middleOf(QIcon(path));
    const bool keptAgain = isKept(path);
    QVERIFY(QResource::unregisterResource(placeOfBlue.data()));
    QCOMPARE(after, blueColor);
    QCOMPARE(middleOf(before), redColor);
    QCOMPARE(keptAgain, hasPlainScreen());
}

void TestPictureCache::resourceThatIsGoneIsMissing()
{
    const QByteArray red = resourceFile("red");
    QVERIFY(QResource::registerResource(bytesOf(red)));
    QVERIFY(!QIcon(":/changing/picture.png").pixmap(8, 8).isNull());
    QVERIFY(QResource::unregisterResource(bytesOf(red)));
    QCOMPARE(difference(QIcon(":/changing/picture.png"), QIcon(ofToolkit("missing"))), QString());
}

void TestPictureCache::iconOutlivesItsResource()
{
    const QByteArray red = resourceFile("red");
    QVERIFY(QResource::registerResource(bytesOf(red)));
    const QIcon icon(":/changing/picture.png");
    QVERIFY(QResource::unregisterResource(bytesOf(red)));
    QCOMPARE(middleOf(icon), QColor(0xc0, 0x20, 0x20));
    QVERIFY(!icon.pixmap(8, 8, QIcon::Disabled).isNull());
    QVERIFY(!icon.pixmap(4, 4, QIcon::Selected, QIcon::On).isNull());
}

void TestPictureCache::threadsGetTheToolkitsOwn()
{
    const qint64 key = pictureKey(QIcon(kept("photo")));
    qint64 keyInThread = key;
    std::thread([&] { keyInThread = pictureKey(QIcon(kept("photo"))); }).join();
    QVERIFY(keyInThread != key);
}

void TestPictureCache::looksLikeTheToolkitsOwn_data()
{
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("expected");
    for (const char *picture : pictures)
        QTest::newRow(picture) << kept(picture) << ofToolkit(picture);
    QTest::newRow("in capitals") << ":/pictures/capital.PNG" << "toolkit:capital.PNG";
    QTest::newRow("no suffix") << ":/pictures/nosuffix" << "toolkit:nosuffix";
    QTest::newRow("directory") << ":/pictures/" << "toolkit:.";
    QTest::newRow("no file") << ":/.png" << ofToolkit("missing");
    QTest::newRow("address of a page") << "qrc:/pictures/photo.png" << ofToolkit("missing");
    if (hasPlainScreen())
        QTest::newRow("another suffix") << kept("photo") << ":/pictures/photo.bin";
}

void TestPictureCache::looksLikeTheToolkitsOwn()
{
    QFETCH(QString, actual);
    QFETCH(QString, expected);
    // The second time it comes from the cache, and after it was in use.
    for (int time = 0; time < 3; ++time)
        QCOMPARE(difference(QIcon(actual), QIcon(expected)), QString());
}

void TestPictureCache::isPaintedLikeTheToolkitsOwn_data()
{
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("expected");
    for (const char *picture : pictures)
        QTest::newRow(picture) << kept(picture) << ofToolkit(picture);
}

void TestPictureCache::isPaintedLikeTheToolkitsOwn()
{
    QFETCH(QString, actual);
    QFETCH(QString, expected);
    const QIcon icon(actual);
    const QIcon own(expected);
    const QRect rectangles[] = {{3, 5, 47, 33}, {3, 5, 20, 20}, {3, 5, 20, 14}, {1, 2, 7, 90}, {0, 0, 120, 120},
                                {60, 60, 13, 9}};
    for (bool scales : {false, true}) {
        setScaling(scales);
        for (QRect rectangle : rectangles) {
            for (qreal ratio : {0.5, 1.0, 1.25, 2.0}) {
                for (QIcon::Mode mode : modes) {
                    const QString place = QStringLiteral("%1 at %2, mode %3, %4")
                        .arg(name(rectangle.size())).arg(ratio).arg(mode).arg(scales ? "scales" : "plain");
                    QVERIFY2(painted(icon, rectangle, ratio, Qt::AlignCenter, mode)
                             == painted(own, rectangle, ratio, Qt::AlignCenter, mode), qPrintable(place));
                }
            }
            for (Qt::Alignment alignment : {Qt::AlignLeft | Qt::AlignTop, Qt::AlignRight | Qt::AlignBottom}) {
                for (Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                    QVERIFY(painted(icon, rectangle, 1, alignment, QIcon::Normal, direction)
                            == painted(own, rectangle, 1, alignment, QIcon::Normal, direction));
                }
            }
        }
    }
}

void TestPictureCache::takesMoreLikeTheToolkitsOwn_data()
{
    QTest::addColumn<Change>("change");
    QPixmap square(30, 30);
    square.fill(Qt::green);
    QPixmap sameSize(47, 33);
    sameSize.fill(Qt::blue);
    QPixmap fine(60, 60);
    fine.fill(Qt::yellow);
    fine.setDevicePixelRatio(2);
    const auto file = [](const char *name, QSize size, QIcon::Mode mode, QIcon::State state) {
        return Change([=](QIcon &icon, const QString &place) { icon.addFile(path(place, name), size, mode, state); });
    };
    const auto pixmap = [](const QPixmap &pixmap, QIcon::Mode mode, QIcon::State state) {
        return Change([=](QIcon &icon, const QString &) { icon.addPixmap(pixmap, mode, state); });
    };
    QTest::newRow("nothing") << Change([](QIcon &, const QString &) {});
    QTest::newRow("a smaller file") << file("dot", QSize(), QIcon::Normal, QIcon::Off);
    QTest::newRow("the same file") << file("photo", QSize(), QIcon::Normal, QIcon::Off);
    QTest::newRow("a file of its size") << file("dot", QSize(16, 16), QIcon::Normal, QIcon::Off);
    QTest::newRow("a file of another size") << file("dot", QSize(24, 24), QIcon::Normal, QIcon::Off);
    QTest::newRow("a file with fine pixels") << file("photo@2x", QSize(), QIcon::Normal, QIcon::Off);
    QTest::newRow("a file for disabled") << file("dot", QSize(), QIcon::Disabled, QIcon::Off);
    QTest::newRow("a file for selected and on") << file("screen", QSize(), QIcon::Selected, QIcon::On);
    QTest::newRow("a file for active") << file("screen", QSize(), QIcon::Active, QIcon::Off);
    QTest::newRow("a file that is missing") << file("missing", QSize(), QIcon::Normal, QIcon::Off);
    QTest::newRow("a file that is missing, with a size") << file("missing", QSize(9, 9), QIcon::Disabled, QIcon::Off);
    QTest::newRow("a file that is broken") << file("broken", QSize(9, 9), QIcon::Normal, QIcon::Off);
    QTest::newRow("a pixmap") << pixmap(square, QIcon::Normal, QIcon::Off);
    QTest::newRow("a pixmap in the place of the file") << pixmap(sameSize, QIcon::Normal, QIcon::Off);
    QTest::newRow("a pixmap with fine pixels") << pixmap(fine, QIcon::Normal, QIcon::Off);
    QTest::newRow("a pixmap for disabled") << pixmap(square, QIcon::Disabled, QIcon::Off);
    QTest::newRow("a pixmap for on") << pixmap(square, QIcon::Normal, QIcon::On);
    QTest::newRow("no pixmap") << pixmap(QPixmap(), QIcon::Normal, QIcon::Off);
    QTest::newRow("several") << Change([=](QIcon &icon, const QString &place) {
        icon.addPixmap(square, QIcon::Disabled);
        icon.addFile(path(place, "dot"));
        icon.addFile(path(place, "screen"), QSize(), QIcon::Normal, QIcon::On);
        icon.addPixmap(fine, QIcon::Selected, QIcon::On);
    });
    for (QIcon::Mode mode : modes) {
        QTest::newRow(qPrintable(QStringLiteral("from the start for mode %1").arg(mode)))
            << Change([=](QIcon &icon, const QString &place) {
            icon = QIcon();
            icon.addFile(path(place, "photo"), QSize(), mode, QIcon::On);
            icon.addFile(path(place, "dot"));
        });
    }
    for (QSize size : {QSize(47, 33), QSize(20, 20)}) {
        QTest::newRow(qPrintable("from the start of size " + name(size)))
            << Change([=](QIcon &icon, const QString &place) {
            icon = QIcon();
            icon.addFile(path(place, "photo"), size);
        });
    }
}

void TestPictureCache::takesMoreLikeTheToolkitsOwn()
{
    QFETCH(Change, change);
    QIcon icon(kept("photo"));
    QIcon own(ofToolkit("photo"));
    const QIcon copy = icon;
    change(icon, Kept);
    change(own, OfToolkit);
    QCOMPARE(difference(icon, own), QString());
    for (QRect rectangle : {QRect(0, 0, 31, 30), QRect(0, 0, 14, 20)}) {
        for (qreal ratio : {1.0, 2.0}) {
            for (QIcon::Mode mode : modes) {
                QVERIFY(painted(icon, rectangle, ratio, Qt::AlignCenter, mode)
                        == painted(own, rectangle, ratio, Qt::AlignCenter, mode));
            }
        }
    }

    // Neither the copy from before nor what the cache has may have changed.
    const QIcon unchanged(ofToolkit("photo"));
    QCOMPARE(difference(copy, unchanged), QString());
    QCOMPARE(difference(QIcon(kept("photo")), unchanged), QString());
}

void TestPictureCache::isWrittenLikeTheToolkitsOwn_data()
{
    takesMoreLikeTheToolkitsOwn_data();
}

void TestPictureCache::isWrittenLikeTheToolkitsOwn()
{
    QFETCH(Change, change);
    QIcon icon(kept("photo"));
    QIcon own(ofToolkit("photo"));
    change(icon, Kept);
    change(own, OfToolkit);
    for (QDataStream::Version version : {QDataStream::Qt_4_8, QDataStream::Qt_DefaultCompiledVersion}) {
        for (QDataStream::ByteOrder order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            const QByteArray bytes = written(icon, version, order);
            QCOMPARE(bytes, written(own, version, order));
            QVERIFY(!readBack(bytes, version, order).isNull());
        }
    }
}

void TestPictureCache::labelLooksTheSame_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QSize>("size");
    const QString image = "image: url(\"PLACE%1.png\");";
    for (const char *picture : pictures) {
        QTest::newRow(qPrintable(QStringLiteral("%1, large").arg(picture))) << image.arg(picture) << QSize(240, 200);
        QTest::newRow(qPrintable(QStringLiteral("%1, small").arg(picture))) << image.arg(picture) << QSize(13, 29);
    }
    const QString photo = image.arg("photo");
    QTest::newRow("at the right") << photo + "image-position: right;" << QSize(100, 50);
    QTest::newRow("at the bottom left") << photo + "image-position: bottom left;" << QSize(100, 50);
    QTest::newRow("with a border") << photo + "border: 5px solid red; padding: 3px;" << QSize(50, 50);
    QTest::newRow("before a background") << photo + "background-color: #f7ce86;" << QSize(50, 50);
    QTest::newRow("as a background") << "background-image: url(\"PLACEphoto.png\");" << QSize(100, 50);
    QTest::newRow("with one for disabled")
        << "image: url(\"PLACEphoto.png\"), url(\"PLACEdot.png\") disabled;" << QSize(60, 60);
}

void TestPictureCache::labelLooksTheSame()
{
    QFETCH(QString, sheet);
    QFETCH(QSize, size);
    const auto grabbed = [&](const QString &place, bool enabled, bool rightToLeft) {
        QLabel label("text");
        label.resize(size);
        label.setEnabled(enabled);
        label.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        label.setStyleSheet(QString(sheet).replace("PLACE", place));
        return label.grab().toImage();
    };
    for (bool enabled : {true, false}) {
        for (bool rightToLeft : {false, true})
            QVERIFY(grabbed(Kept, enabled, rightToLeft) == grabbed(OfToolkit, enabled, rightToLeft));
    }
}

void TestPictureCache::buttonLooksTheSame()
{
    const auto grabbed = [](const QString &path, bool enabled, bool checked) {
        QPushButton button("text");
        button.setIcon(QIcon(path));
        button.setCheckable(true);
        button.setChecked(checked);
        button.setEnabled(enabled);
        button.resize(100, 40);
        return button.grab().toImage();
    };
    for (bool enabled : {true, false}) {
        for (bool checked : {true, false})
            QVERIFY(grabbed(kept("photo"), enabled, checked) == grabbed(ofToolkit("photo"), enabled, checked));
    }
}

void TestPictureCache::anotherStyleShowsAtOnce()
{
    // An icon that shows for the first time after the change has had no looks before.
    const QIcon early(kept("photo"));
    for (QColor color : {QColor(200, 40, 40), QColor(40, 40, 200), QColor(200, 40, 40)}) {
        QApplication::setStyle(new ColouringStyle(color));
        QCOMPARE(difference(QIcon(kept("photo")), QIcon(ofToolkit("photo"))), QString());
        QCOMPARE(middleOf(QIcon(QIcon(kept("photo")).pixmap(8, 8, QIcon::Disabled))), color.lighter(120));
    }
    QCOMPARE(difference(early, QIcon(ofToolkit("photo"))), QString());
}

void TestPictureCache::anotherPaletteShowsAtOnce()
{
    for (QColor color : {QColor(200, 40, 40), QColor(40, 40, 200)}) {
        QPalette palette;
        palette.setColor(QPalette::Window, color);
        palette.setColor(QPalette::Highlight, color);
        QApplication::setPalette(palette);
        QCOMPARE(difference(QIcon(kept("photo")), QIcon(ofToolkit("photo"))), QString());
    }
}

void TestPictureCache::largestPicturesAreNotKept()
{
    QCOMPARE(isKept(kept("screen")), hasPlainScreen());
    QVERIFY(!isKept(kept("large")));
    QCOMPARE(isKept(kept("screen")), hasPlainScreen());
}

void TestPictureCache::leastUsedPicturesGo()
{
    const auto pathOf = [](int number) {
        return ":/pictures" + QString(number, '/') + "/screen.png";
    };
    if (!hasPlainScreen())
        QSKIP("Nothing is kept on this screen.");
    const qint64 first = pictureKey(QIcon(pathOf(0)));
    const qint64 second = pictureKey(QIcon(pathOf(1)));
    for (int number = 2; number < 20; ++number) {
        pictureKey(QIcon(pathOf(number)));
        QCOMPARE(pictureKey(QIcon(pathOf(1))), second);
    }
    QVERIFY(pictureKey(QIcon(pathOf(0))) != first);
    QVERIFY(isKept(pathOf(19)));
}

void TestPictureCache::iconOutlivesTheApplication()
{
    // What counts is that the program ends well.
    g_outlivesTheApplication = QIcon(kept("photo"));
    QVERIFY(!g_outlivesTheApplication.isNull());
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::addLibraryPath(PLUGIN_DIRECTORY);
    QApplication application(argc, argv);
    QDir::setSearchPaths("toolkit", {":/pictures"});
    TestPictureCache test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_picturecache.moc"
