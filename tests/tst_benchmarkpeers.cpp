// What the benchmarks compare must be comparable: the library's screens and the plain ones paint the same picture in
// every state that is measured.

#include "picturecomparison.h"
#include "screens.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTest>

namespace {

void type(QWidget *screen, int key)
{
    QWidget *receiver = QApplication::focusWidget();
    QVERIFY2(receiver == screen || screen->isAncestorOf(receiver), "the screen has no focus");
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(receiver, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(receiver, &release);
}

// Without timers: no character of the keypad becomes final in between.
QImage picture(QWidget &window)
{
    QCoreApplication::sendPostedEvents();
    return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

}

class TestBenchmarkPeers : public QObject
{
    Q_OBJECT

private slots:
    void listsLookTheSame_data();
    void listsLookTheSame();
    void listViewsLookTheSame_data();
    void listViewsLookTheSame();
    void keypadsLookTheSame_data();
    void keypadsLookTheSame();
    void switchersLookTheSame_data();
    void switchersLookTheSame();
    void clocksLookTheSame_data();
    void clocksLookTheSame();

private:
    using NewScreen = QWidget *(*)(Make make, QWidget *parent);

    QImage pictureAfterKeys(Make make, NewScreen newScreen, const QByteArray &keys);
    void compareAfterKeys(NewScreen newScreen, const QByteArray &keys);
    void comparePictures(const QImage &library, const QImage &plain);
};

QImage TestBenchmarkPeers::pictureAfterKeys(Make make, NewScreen newScreen, const QByteArray &keys)
{
    QWidget window;
    window.resize(ScreenWidth, ScreenHeight);
    QWidget *screen = newScreen(make, &window);
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        return QImage();
    // The library's list has given the focus to its first row.
    if (!screen->isAncestorOf(QApplication::focusWidget()))
        screen->setFocus();
    for (char key : keys) {
        // As it is measured: what comes after a key was painted in between may be painted in parts.
        window.repaint();
        type(screen, key);
    }
    return picture(window);
}

void TestBenchmarkPeers::comparePictures(const QImage &library, const QImage &plain)
{
    QVERIFY(!library.isNull());
    const int different = differingPixels(library, plain);
    if (different == 0)
        return;
    const QString name = QString::fromLatin1("%1-%2").arg(QTest::currentTestFunction(), QTest::currentDataTag());
    library.save(name + QLatin1String("-library.png"));
    plain.save(name + QLatin1String("-plain.png"));
    differencePicture(plain, library).save(name + QLatin1String("-difference.png"));
    QFAIL(qPrintable(QStringLiteral("%1 pixels differ; see %2-*.png here").arg(different).arg(name)));
}

void TestBenchmarkPeers::compareAfterKeys(NewScreen newScreen, const QByteArray &keys)
{
    comparePictures(pictureAfterKeys(Make::Library, newScreen, keys), pictureAfterKeys(Make::Plain, newScreen, keys));
}

void TestBenchmarkPeers::listsLookTheSame_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::newRow("at rest") << QByteArray();
    QTest::newRow("down in view") << QByteArray("8");
    QTest::newRow("down and up") << QByteArray("82");
    QTest::newRow("scrolled by one row") << QByteArray("888");
    QTest::newRow("scrolled to the middle") << QByteArray("888888");
    QTest::newRow("scrolled back within the view") << QByteArray("8888882");
    QTest::newRow("at the end") << QByteArray("2");
    QTest::newRow("around the end") << QByteArray("28");
    QTest::newRow("next value") << QByteArray("6");
    QTest::newRow("previous value") << QByteArray("4");
    QTest::newRow("values around the end") << QByteArray("66666666");
    QTest::newRow("value of a row scrolled to") << QByteArray("88886628");
}

void TestBenchmarkPeers::listsLookTheSame()
{
    QFETCH(QByteArray, keys);
    for (int rows : {12, 200}) {
        static int rowCount;
        rowCount = rows;
        compareAfterKeys([](Make make, QWidget *parent) { return newList(make, rowCount, parent); }, keys);
    }
}

void TestBenchmarkPeers::listViewsLookTheSame_data()
{
    listsLookTheSame_data();
}

void TestBenchmarkPeers::listViewsLookTheSame()
{
    QFETCH(QByteArray, keys);
    for (int rows : {12, 200}) {
        static int rowCount;
        rowCount = rows;
        compareAfterKeys([](Make make, QWidget *parent) { return newListView(make, rowCount, parent); }, keys);
    }
}

void TestBenchmarkPeers::keypadsLookTheSame_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::newRow("at rest") << QByteArray();
    QTest::newRow("one letter") << QByteArray("2");
    QTest::newRow("second letter of a key") << QByteArray("22");
    QTest::newRow("two keys") << QByteArray("23");
    QTest::newRow("every key") << QByteArray("1234567890");
    QTest::newRow("letters around the end of a key") << QByteArray("55555");
}

void TestBenchmarkPeers::keypadsLookTheSame()
{
    QFETCH(QByteArray, keys);
    compareAfterKeys(newKeypad, keys);
}

void TestBenchmarkPeers::switchersLookTheSame_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::newRow("at rest") << QByteArray();
    for (int steps = 1; steps <= 6; ++steps) {
        QTest::addRow("%d to the right", steps) << QByteArray(steps, '6');
        QTest::addRow("%d to the left", steps) << QByteArray(steps, '4');
    }
}

void TestBenchmarkPeers::switchersLookTheSame()
{
    QFETCH(QByteArray, keys);
    compareAfterKeys(newSwitcher, keys);
}

void TestBenchmarkPeers::clocksLookTheSame_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<int>("second");
    QTest::addColumn<int>("ticks");
    QTest::newRow("at rest") << 10 << 12 << 34 << 0;
    QTest::newRow("one tick") << 10 << 12 << 34 << 1;
    QTest::newRow("next ten seconds") << 10 << 12 << 34 << 6;
    QTest::newRow("a tick with nothing changed") << 10 << 12 << 34 << -1;
    QTest::newRow("next minute") << 10 << 12 << 59 << 1;
    QTest::newRow("next hour") << 9 << 59 << 59 << 1;
    QTest::newRow("noon") << 11 << 59 << 59 << 1;
    QTest::newRow("afternoon") << 12 << 59 << 59 << 1;
}

void TestBenchmarkPeers::clocksLookTheSame()
{
    QFETCH(int, hour);
    QFETCH(int, minute);
    QFETCH(int, second);
    QFETCH(int, ticks);
    QImage pictures[2];
    for (Make make : {Make::Library, Make::Plain}) {
        QWidget window;
        window.resize(ScreenWidth, ScreenHeight);
        const Clock clock = newClock(make, &window);
        window.show();
        int now = (hour * 60 + minute) * 60 + second;
        const auto show = [&clock](int time) { clock.showTime(time / 3600, time / 60 % 60, time % 60); };
        show(now);
        for (int tick = 0; tick < qAbs(ticks); ++tick) {
            window.repaint();
            show(ticks > 0 ? ++now : now);
        }
        pictures[int(make)] = picture(window);
    }
    comparePictures(pictures[int(Make::Library)], pictures[int(Make::Plain)]);
}

int main(int argc, char **argv)
{
    setUpEnvironment();
    QApplication application(argc, argv);
    setUpApplication();
    TestBenchmarkPeers test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_benchmarkpeers.moc"
