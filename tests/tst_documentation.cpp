// Holds the pages in docs/ to the library: what they show is drawn by it, what they list is what it has.

#include "picturecomparison.h"
#include "samples.h"

#include "platform/desktop/desktoplog.h"

#include "widgetbottom.h"
#include "widgetbottomguide.h"
#include "widgetclock.h"
#include "widgetdate.h"
#include "widgeticongroup.h"
#include "widgetkeypad.h"
#include "widgetkeypadbottom.h"
#include "widgetlist.h"
#include "widgetlistitem.h"
#include "widgetlistview.h"
#include "widgetmarqueelable.h"
#include "widgetmenutitle.h"
#include "widgetprogressbar.h"
#include "widgetselecttile.h"
#include "widgetsimpletitle.h"
#include "widgetsoftbtn.h"
#include "widgetstatusbar.h"
#include "widgetswitcher.h"
#include "widgettamark.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMetaMethod>
#include <QProgressBar>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>

namespace {

struct Page
{
    QString path;  // in the sources
    QString text;
};

/// A picture on a page, with the text that stands for it.
struct Picture
{
    QString page;
    QString text;
    QString name;
};

QString readFile(const QString &path)
{
    QFile file(QStringLiteral(SOURCE_DIRECTORY "/") + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QList<QRegularExpressionMatch> matches(const QString &pattern, const QString &text)
{
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    QList<QRegularExpressionMatch> all;
    for (QRegularExpressionMatchIterator i = expression.globalMatch(text); i.hasNext();)
        all << i.next();
    return all;
}

QStringList captures(const QString &pattern, const QString &text)
{
    QStringList all;
    for (const QRegularExpressionMatch &match : matches(pattern, text))
        all << match.captured(1);
    return all;
}

/// The pages in \a directory of docs/, and in those below.
QList<Page> pagesIn(const QString &directory)
{
    QList<Page> pages;
    const QDir docs(QStringLiteral(SOURCE_DIRECTORY "/docs/") + directory);
    for (const QString &name : docs.entryList({"*.md"}, QDir::Files)) {
        const QString path = QDir::cleanPath(QStringLiteral("docs/%1/%2").arg(directory, name));
        pages << Page{path, readFile(path)};
    }
    return pages;
}

QList<Page> allPages()
{
    return pagesIn(".") + pagesIn("guide") + pagesIn("classes");
}

/// All pictures of samples. Those that stand in docs/ are shown by README.md too.
QList<Picture> allPictures()
{
    QList<Picture> pictures;
    for (const Page &page : allPages()) {
        for (const QRegularExpressionMatch &match : matches("!\\[([^]]*)\\]\\(([^)]*)\\.png\\)", page.text)) {
            if (!QFileInfo::exists(QStringLiteral(SOURCE_DIRECTORY "/docs/%1.png").arg(match.captured(2))))
                pictures << Picture{page.path, match.captured(1), match.captured(2)};
        }
        for (const QRegularExpressionMatch &match : matches("<img src=\"([^\"]*)\\.png\"[^>]*alt=\"([^\"]*)\"", page.text))
            pictures << Picture{page.path, match.captured(2), match.captured(1)};
    }
    return pictures;
}

QStringList sampleNames()
{
    QStringList names;
    for (const Sample &sample : allSamples())
        names << QString::fromLatin1(sample.name);
    return names;
}

/// The files that a page may take code from: those that CMake compiles, and the examples.
QStringList compiledFiles()
{
    QStringList files = captures("^    samples/(\\w+\\.cpp)$", readFile("docs/CMakeLists.txt"));
    files << "examples/firstscreen/main.cpp" << "examples/firstscreen/myplatform.cpp";
    files << "examples/board/board.service.in";
    const QString examples = captures("^set\\(examples ([^)]*)\\)$", readFile("examples/CMakeLists.txt")).value(0);
    for (const QString &example : examples.split(' '))
        files << QStringLiteral("examples/%1/main.cpp").arg(example);
    return files;
}

QString codeFile(const QString &name)
{
    return readFile(name.contains('/') ? name : QStringLiteral("docs/samples/") + name);
}

/// The lines between the marks \a id in \a code.
QStringList snippet(const QString &code, const QString &id)
{
    const QStringList parts = code.split(QStringLiteral("//! [%1]\n").arg(id));
    QStringList lines;
    if (parts.size() == 3) {
        for (const QString &line : parts.at(1).split('\n'))
            lines << line.trimmed();
    }
    return lines;
}

/// The cells of the \a column of the table under \a heading, without their backticks.
QStringList tableColumn(const QString &page, const QString &heading, int column)
{
    QStringList cells;
    const QString section = page.section(QStringLiteral("\n## %1\n").arg(heading), 1).section("\n## ", 0, 0);
    for (const QString &line : section.split('\n')) {
        const QStringList row = line.split('|');
        if (row.size() > column + 2 && !line.startsWith("|---"))
            cells << row.at(column + 1).trimmed().remove('`').trimmed();
    }
    return cells.mid(1);
}

/// The pictures that \a sheet names.
QStringList picturesOf(const QString &sheet)
{
    return captures("url\\(:/resource/images_l2/(\\w+)\\.png\\)", sheet);
}

/// Whether anything of \a widget is within all that is around it.
bool isSeen(const QWidget *widget)
{
    QRect rect = widget->rect();
    for (; widget->parentWidget(); widget = widget->parentWidget())
        rect = rect.translated(widget->pos()) & widget->parentWidget()->rect();
    return !rect.isEmpty();
}

/// What a person can read in \a screen, and the names of the pictures that a person can see.
QStringList wordsOf(const QWidget *screen)
{
    QStringList words;
    QMap<int, QString> time;
    QMap<int, QString> second;
    for (const QWidget *widget : screen->findChildren<QWidget *>()) {
        if (!widget->isVisible() || !isSeen(widget))
            continue;
        if (const auto *label = qobject_cast<const QLabel *>(widget)) {
            words << label->text();
            const int x = label->mapTo(screen, QPoint()).x();
            for (const QString &picture : picturesOf(label->styleSheet())) {
                const QString shown = picture.section('_', -1);
                if (picture == "clock_am" || picture == "clock_pm")
                    words << shown.toUpper();
                else if (picture.startsWith("clock_xs_"))
                    second[x] = shown;
                else if (picture.startsWith("clock_"))
                    time[x] = shown == "separator" ? ":" : shown;
                else
                    words << picture;
            }
        } else if (const auto *line = qobject_cast<const QLineEdit *>(widget)) {
            words << (line->text().isEmpty() ? line->placeholderText() : line->displayText());
        } else if (const auto *bar = qobject_cast<const QProgressBar *>(widget)) {
            words << bar->text();
        } else if (const auto *view = qobject_cast<const QAbstractItemView *>(widget)) {
            if (!qobject_cast<const WidgetListView *>(view->parentWidget()))
                continue;
            for (int y = 0; y < view->height(); ++y) {
                const QModelIndex row = view->indexAt(QPoint(view->width() / 2, y));
                const QStringList values = row.data(WidgetListView::ValuesRole).toStringList();
                words << row.data(WidgetListView::TitleRole).toString()
                      << row.data(WidgetListView::ValueRole).toString()
                      << values.value(row.data(WidgetListView::ValueIndexRole).toInt());
            }
        }
    }
    words << QStringList(time.values()).join(QString()) << QStringList(second.values()).join(QString());
    words.removeAll(QString());
    words.removeDuplicates();
    return words;
}

const Sample *findSample(const QString &name)
{
    for (const Sample &sample : allSamples()) {
        if (name == QLatin1String(sample.name))
            return &sample;
    }
    return nullptr;
}

const QMetaObject *const classes[] = {
    &ClockUpdateThread::staticMetaObject, &DateUpdateThread::staticMetaObject, &Widget::staticMetaObject,
    &WidgetBottom::staticMetaObject, &WidgetBottomGuide::staticMetaObject, &WidgetClock::staticMetaObject,
    &WidgetDate::staticMetaObject, &WidgetIconGroup::staticMetaObject, &WidgetKeypad::staticMetaObject,
    &WidgetKeypadBottom::staticMetaObject, &WidgetList::staticMetaObject, &WidgetListItem::staticMetaObject,
    &WidgetListView::staticMetaObject, &WidgetMarqueeLable::staticMetaObject, &WidgetProgressBar::staticMetaObject,
    &WidgetSelectTile::staticMetaObject, &WidgetSimpleTitle::staticMetaObject, &WidgetSoftBtn::staticMetaObject,
    &WidgetStatusBar::staticMetaObject, &WidgetSwitcher::staticMetaObject, &WidgetTAMark::staticMetaObject,
};

/// The classes that the header \a name exports.
QStringList classesIn(const QString &name)
{
    return captures("^class WIDGET_EXPORT (\\w+)", readFile("ui/view/widget/" + name));
}

QStringList headers()
{
    QStringList names;
    for (const QString &name : QDir(QStringLiteral(SOURCE_DIRECTORY "/ui/view/widget")).entryList({"*.h"})) {
        if (!classesIn(name).isEmpty())
            names << name;
    }
    return names;
}

QString pageOf(const QString &className)
{
    return readFile(QStringLiteral("docs/classes/%1.md").arg(className.toLower()));
}

/// The column of the tables under \a heading of all classes that \a header exports.
QSet<QString> listedFor(const QString &header, const QString &heading, int column)
{
    QSet<QString> all;
    for (const QString &name : classesIn(header)) {
        for (const QString &cell : tableColumn(pageOf(name), heading, column))
            all << cell;
    }
    return all;
}

QString sorted(const QSet<QString> &set)
{
    QStringList list(set.begin(), set.end());
    list.sort();
    return list.join('\n');
}

void addHeaders()
{
    QTest::addColumn<QString>("header");
    for (const QString &header : headers())
        QTest::newRow(qPrintable(header)) << header;
}

void addPages(const QList<Page> &pages)
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("text");
    for (const Page &page : pages)
        QTest::newRow(qPrintable(page.path)) << page.path << page.text;
}

}

class TestDocumentation : public QObject
{
    Q_OBJECT

private slots:
    void everyClassHasItsPage_data() { addHeaders(); }
    void everyClassHasItsPage();
    void listsTheSignalsOfItsClass_data();
    void listsTheSignalsOfItsClass();
    void listsTheLogLinesOfItsSource_data() { addHeaders(); }
    void listsTheLogLinesOfItsSource();
    void listsTheSoundsOfItsSource_data() { addHeaders(); }
    void listsTheSoundsOfItsSource();

    void everySampleIsShown();
    void showsWhatItsTextSays_data();
    void showsWhatItsTextSays();
    void nothingIsCutOff();
    void noTwoPicturesAreTheSame();
    void readmeShowsWhatIsDrawn_data();
    void readmeShowsWhatIsDrawn();
    void drawingThemIsNoMistake();

    void takesCodeFromWhatIsCompiled_data() { addPages(pagesIn("guide") + pagesIn("classes")); }
    void takesCodeFromWhatIsCompiled();
    void everySnippetIsUsed();
    void showsTheCodeOfItsPictures_data() { addPages(pagesIn("guide") + pagesIn("classes")); }
    void showsTheCodeOfItsPictures();
    void givesTheCommandsOfTheReadme_data() { addPages(pagesIn("guide") + pagesIn("classes")); }
    void givesTheCommandsOfTheReadme();
    void firstScreenIsTheExample();
    void linksLeadSomewhere_data() { addPages(allPages() + QList<Page>{{"README.md", readFile("README.md")}}); }
    void linksLeadSomewhere();
    void namesFilesThatExist_data() { addPages(pagesIn("guide") + pagesIn("classes")); }
    void namesFilesThatExist();
    void namesWhatTheHeadersHave_data() { addPages(allPages()); }
    void namesWhatTheHeadersHave();
    void tellsLogLinesThatAreWritten_data() { addPages(pagesIn("guide")); }
    void tellsLogLinesThatAreWritten();
};

void TestDocumentation::everyClassHasItsPage()
{
    QFETCH(QString, header);
    for (const QString &name : classesIn(header)) {
        const QString page = pageOf(name);
        QVERIFY2(page.startsWith(QStringLiteral("# %1 {#%2}\n").arg(name, name.toLower())), qPrintable(name));
        QVERIFY2(page.contains(QStringLiteral("\nIn `%1`. All functions: \\ref %2 ").arg(header, name)), qPrintable(name));
        QVERIFY2(readFile("docs/classes/classes.md").contains("\\subpage " + name.toLower() + " "), qPrintable(name));
    }
}

void TestDocumentation::listsTheSignalsOfItsClass_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &header : headers()) {
        for (const QString &name : classesIn(header))
            QTest::newRow(qPrintable(name)) << name;
    }
}

void TestDocumentation::listsTheSignalsOfItsClass()
{
    QFETCH(QString, name);
    const auto isOfTheClass = [&name](const QMetaObject *object) { return name == QLatin1String(object->className()); };
    const auto found = std::find_if(std::begin(classes), std::end(classes), isOfTheClass);
    QSet<QString> expected;
    // WidgetMenuTitle has no meta-object of its own, and so no signals.
    if (found == std::end(classes)) {
        QCOMPARE(name, QStringLiteral("WidgetMenuTitle"));
    } else {
        for (int i = (*found)->methodOffset(); i < (*found)->methodCount(); ++i) {
            const QMetaMethod method = (*found)->method(i);
            if (method.methodType() != QMetaMethod::Signal)
                continue;
            QStringList parameters;
            for (int parameter = 0; parameter < method.parameterCount(); ++parameter) {
                const QString type = QString::fromLatin1(method.parameterTypes().at(parameter)).section(':', -1);
                parameters << type + ' ' + method.parameterNames().at(parameter);
            }
            expected << QStringLiteral("%1(%2)").arg(QString::fromLatin1(method.name()), parameters.join(", "));
        }
    }
    const QStringList listed = tableColumn(pageOf(name), "Signals", 0);
    QCOMPARE(sorted(QSet<QString>(listed.begin(), listed.end())), sorted(expected));
}

void TestDocumentation::listsTheLogLinesOfItsSource()
{
    QFETCH(QString, header);
    const QString source = readFile("ui/view/widget/" + QString(header).replace(".h", ".cpp"));
    QVERIFY(!source.isEmpty());
    const QMap<QString, QString> shared = {
        {"\\brejectItem\\(", "[%s, %d] Unknown item!!"},
        {"\\brejectInvalidItem\\(", "Invalid item!!"},
        {"\\brejects?Index\\(|\\bkeepKeypadCellSheet\\(", "[%s, %s] Invalid index %d"},
    };
    const QString details = readFile("ui/view/widget/widgetdetails.cpp");
    QSet<QString> expected;
    for (const QString &line : captures("Logging::log\\(Logging::\\w+,\\s*\"([^\"]*)\"", source))
        expected << line.trimmed();
    for (auto i = shared.begin(); i != shared.end(); ++i) {
        QVERIFY2(details.contains('"' + i.value() + '"'), qPrintable(i.value()));
        if (source.contains(QRegularExpression(i.key())))
            expected << i.value();
    }
    QCOMPARE(sorted(listedFor(header, "Log lines", 1)), sorted(expected));
    for (const QString &level : listedFor(header, "Log lines", 0))
        QVERIFY2(QStringList({"error", "trace", "notice"}).contains(level), qPrintable(level));
}

void TestDocumentation::listsTheSoundsOfItsSource()
{
    QFETCH(QString, header);
    const QString source = readFile("ui/view/widget/" + QString(header).replace(".h", ".cpp"));
    QSet<QString> expected;
    if (source.contains("playSound("))
        expected << "901";
    const QRegularExpression digitSound("const int DigitSound = (\\d+);");
    const int sound = digitSound.match(source).captured(1).toInt();
    // The sound of a key that has no digit, and those of the keys that have one.
    if (sound > 0)
        expected << QString::number(sound) << QString("%1 to %2").arg(sound + '0').arg(sound + '9');
    QCOMPARE(sorted(listedFor(header, "Sounds", 0)), sorted(expected));
}

void TestDocumentation::everySampleIsShown()
{
    QStringList unused = sampleNames();
    for (const Picture &picture : allPictures())
        unused.removeAll(picture.name);
    QCOMPARE(unused, QStringList());
}

void TestDocumentation::showsWhatItsTextSays_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    for (const Picture &picture : allPictures())
        QTest::addRow("%s: %s", qPrintable(picture.page), qPrintable(picture.name)) << picture.text << picture.name;
}

void TestDocumentation::showsWhatItsTextSays()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    const Sample *sample = findSample(name);
    QVERIFY2(sample, qPrintable("There is no sample " + name));
    const std::unique_ptr<QWidget> screen = shownScreen(*sample);
    const QStringList words = wordsOf(screen.get());
    const QStringList said = captures("“([^”]*)”", text);
    // A picture in a table stands beside its text, and a ground alone has no words.
    QVERIFY2(!said.isEmpty() || text.isEmpty() || words.isEmpty(), qPrintable("Of the words in it none is in: " + text));
    for (const QString &word : said)
        QVERIFY2(words.contains(word), qPrintable(QStringLiteral("“%1” is not among “%2”").arg(word, words.join("”, “"))));
}

void TestDocumentation::nothingIsCutOff()
{
    for (const Sample &sample : allSamples()) {
        const std::unique_ptr<QWidget> screen = shownScreen(sample);
        for (const QLabel *label : screen->findChildren<QLabel *>()) {
            if (!label->isVisible() || label->wordWrap() || label->text().contains('\n'))
                continue;
            const int width = label->fontMetrics().horizontalAdvance(label->text());
            QVERIFY2(width <= label->contentsRect().width(),
                     qPrintable(QStringLiteral("%1: \"%2\" is cut off").arg(sample.name, label->text())));
        }
    }
}

void TestDocumentation::noTwoPicturesAreTheSame()
{
    QList<QImage> pictures;
    for (const Sample &sample : allSamples()) {
        const QImage picture = pictureOf(shownScreen(sample).get());
        const int same = pictures.indexOf(picture);
        if (same != -1)
            QFAIL(qPrintable(QStringLiteral("%1 looks like %2").arg(sample.name, allSamples().at(same).name)));
        pictures << picture;
    }
}

void TestDocumentation::readmeShowsWhatIsDrawn_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("docs/contacts.png") << "screen_contacts";
}

void TestDocumentation::readmeShowsWhatIsDrawn()
{
    QFETCH(QString, name);
    const QString path = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(readFile("README.md").contains("](" + path + ")"));
    const QImage shown(QStringLiteral(SOURCE_DIRECTORY "/") + path);
    const int sample = sampleNames().indexOf(name);
    const QImage drawn = pictureOf(shownScreen(allSamples().at(sample)).get()).scaled(shown.size());
    const int differing = differingPixels(drawn, shown);
    QVERIFY2(differing < shown.width() * shown.height() / 50, qPrintable(QString::number(differing)));
}

void TestDocumentation::drawingThemIsNoMistake()
{
    // What a widget rejects stands in the log. Those that come before have been drawn as well.
    for (const Sample &sample : allSamples()) {
        shownScreen(sample);
        const std::vector<std::string> lines = Desktop::recentLogLines();
        QVERIFY2(lines.empty(), qPrintable(QStringLiteral("%1: %2").arg(
            sample.name, QString::fromStdString(lines.empty() ? std::string() : lines.back()))));
    }
}

void TestDocumentation::takesCodeFromWhatIsCompiled()
{
    QFETCH(QString, text);
    for (const QString &language : captures("^```(\\S*)$", text))
        QVERIFY2(QStringList({"", "sh", "cmake"}).contains(language), qPrintable(language));
    QVERIFY2(!text.contains("\\code") && !text.contains("~~~"), "Code belongs into a sample.");
    for (const QRegularExpressionMatch &match : matches("^\\\\snippet (\\S+) (\\S+)$", text)) {
        QVERIFY2(compiledFiles().contains(match.captured(1)), qPrintable(match.captured()));
        QVERIFY2(!snippet(codeFile(match.captured(1)), match.captured(2)).isEmpty(), qPrintable(match.captured()));
    }
    QCOMPARE(text.count("\\snippet"), matches("^\\\\snippet (\\S+) (\\S+)$", text).size());
    for (const QString &file : captures("\\\\(?:dont)?include +(\\S+)", text))
        QVERIFY2(compiledFiles().contains(file), qPrintable(file));
}

void TestDocumentation::everySnippetIsUsed()
{
    QString text;
    for (const Page &page : allPages())
        text += page.text;
    for (const QString &file : compiledFiles()) {
        for (const QString &id : captures("//! \\[(\\w+)\\]", codeFile(file))) {
            if (id != "guide_firstscreen")
                QVERIFY2(text.contains(QStringLiteral("\\snippet %1 %2\n").arg(file, id)), qPrintable(id));
        }
    }
}

void TestDocumentation::showsTheCodeOfItsPictures()
{
    QFETCH(QString, path);
    QFETCH(QString, text);
    for (const Picture &picture : allPictures()) {
        if (picture.page != path || picture.text.isEmpty() || picture.name == "guide_firstscreen")
            continue;
        QVERIFY2(text.contains(QRegularExpression("\\\\snippet \\S+ " + picture.name + "\n")), qPrintable(picture.name));
    }
}

void TestDocumentation::givesTheCommandsOfTheReadme()
{
    // tests/readme/follow runs them there.
    QFETCH(QString, text);
    const QString readme = readFile("README.md");
    for (const QString &block : captures("(^```(?:sh|cmake)\n(?:(?!```).*\n)*```)$", text))
        QVERIFY2(readme.contains(block), qPrintable(block));
    for (const QString &line : captures("^(    .*)$", text))
        QVERIFY2(readme.contains(line), qPrintable(line));
}

void TestDocumentation::firstScreenIsTheExample()
{
    const QStringList lines = snippet(readFile("docs/samples/guide.cpp"), "guide_firstscreen");
    QStringList example;
    for (const QString &line : readFile("examples/firstscreen/main.cpp").split('\n'))
        example << line.trimmed();
    const int first = example.indexOf(lines.first());
    QVERIFY(first > 0);
    QCOMPARE(example.mid(first, lines.size() - 1), lines.mid(0, lines.size() - 1));
}

void TestDocumentation::linksLeadSomewhere()
{
    QFETCH(QString, path);
    QFETCH(QString, text);
    const QDir directory(QStringLiteral(SOURCE_DIRECTORY "/") + QFileInfo(path).path());
    // Doxygen takes no link that goes on in another line, nor what comes after it.
    for (const QString &link : captures("\\[([^]\n]*\n[^]]*)\\]\\([^)]*\\)", text))
        QFAIL(qPrintable(link));
    for (const QString &link : captures("(?<!!)\\[[^]]*\\]\\(([^)#]+)[^)]*\\)", text))
        QVERIFY2(directory.exists(link), qPrintable(link));
}

void TestDocumentation::namesFilesThatExist()
{
    QFETCH(QString, text);
    for (const QString &file : captures("`((?:simulator|platform|ui|tests|forms|cmake)/[\\w./]+)`", text))
        QVERIFY2(QFileInfo::exists(QStringLiteral(SOURCE_DIRECTORY "/") + file), qPrintable(file));
}

void TestDocumentation::namesWhatTheHeadersHave()
{
    QFETCH(QString, text);
    QMap<QString, QString> headerOf;
    QString all;
    for (const char *directory : {"ui/view/widget/", "platform/"}) {
        for (const QString &name : QDir(QStringLiteral(SOURCE_DIRECTORY "/") + directory).entryList({"*.h"})) {
            const QString header = readFile(directory + name);
            all += header;
            for (const QString &className : captures("^class (?:WIDGET_EXPORT|PLATFORM_API) (\\w+)", header))
                headerOf[className] = header;
        }
    }
    for (const QRegularExpressionMatch &match : matches("\\b(\\w+)::(\\w+)", text)) {
        if (headerOf.contains(match.captured(1))) {
            const QRegularExpression member("\\b" + match.captured(2) + "\\b");
            QVERIFY2(headerOf.value(match.captured(1)).contains(member), qPrintable(match.captured()));
        }
    }
    for (const QString &member : captures("\\b(m_\\w+)", text))
        QVERIFY2(all.contains(QRegularExpression("\\b" + member + "\\b")), qPrintable(member));
    for (const QString &name : captures("\\b(Widget[A-Z]\\w*)", text))
        QVERIFY2(headerOf.contains(name), qPrintable(name));
}

void TestDocumentation::tellsLogLinesThatAreWritten()
{
    QFETCH(QString, text);
    QString sources;
    for (const QString &name : QDir(QStringLiteral(SOURCE_DIRECTORY "/ui/view/widget")).entryList({"*.cpp"}))
        sources += readFile("ui/view/widget/" + name);
    // What is no code, and not said by the toolkit.
    const QString table = text.section("\n## What can go wrong\n", 1);
    for (const QString &line : captures("^\\| `([A-Z][^`]* [^`]*)`", table)) {
        if (!line.startsWith("QThread:"))
            QVERIFY2(sources.contains(QString(line).replace(QRegularExpression("\\d+"), "%d")), qPrintable(line));
    }
}

int main(int argc, char *argv[])
{
    prepareLook();
    QApplication application(argc, argv);
    startLook();
    TestDocumentation test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_documentation.moc"
