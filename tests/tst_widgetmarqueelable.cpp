#include "eventrecording.h"
#include "waiting.h"
#include "widgetmarqueelable.h"

#include <QtTest>

#include <climits>

class TestWidgetMarqueeLable : public QObject
{
    Q_OBJECT

private slots:
    void startsWithNothingToTurn();
    void isALabelWithNothingOfItsOwnInTheMetaObject();
    void isOtherwiseALabelAsTheToolkitMakesIt();
    void turnsTheTextByOneCharacter_data();
    void turnsTheTextByOneCharacter();
    void neverChangesTheTextThatCirculates();
    void isUnturnedAfterAsManyTicksAsCharacters_data();
    void isUnturnedAfterAsManyTicksAsCharacters();
    void countsOnWithAnEmptyText();
    void staysAtZeroWithOneCharacter();
    void everyTimerTurnsTheTextWhateverItsId();
    void startsAndStopsNoTimerItself();
    void goesOnFromAnOffsetThatTheOwnerSets_data();
    void goesOnFromAnOffsetThatTheOwnerSets();
    void survivesAnOffsetOutsideTheText_data();
    void survivesAnOffsetOutsideTheText();
    void turnsWithARealTimer();
};

static void tick(QObject *label, int timerId = 1, int times = 1)
{
    for (int i = 0; i < times; ++i) {
        QTimerEvent event(timerId);
        QCoreApplication::sendEvent(label, &event);
    }
}

void TestWidgetMarqueeLable::startsWithNothingToTurn()
{
    QWidget parent;
    WidgetMarqueeLable *label = new WidgetMarqueeLable(&parent);
    QCOMPARE(label->parentWidget(), &parent);
    QVERIFY(!label->isWindow());
    QVERIFY(label->m_marqueeText.isNull());
    QCOMPARE(label->m_timerId, 0);
    QCOMPARE(label->m_offset, 0);
    QCOMPARE(label->text(), QString());
}

void TestWidgetMarqueeLable::isALabelWithNothingOfItsOwnInTheMetaObject()
{
    const QMetaObject &meta = WidgetMarqueeLable::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetMarqueeLable");
    QCOMPARE(meta.superClass(), &QLabel::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestWidgetMarqueeLable::isOtherwiseALabelAsTheToolkitMakesIt()
{
    QLabel plain;
    WidgetMarqueeLable label(nullptr);
    QCOMPARE(label.windowFlags(), plain.windowFlags());
    QCOMPARE(label.alignment(), plain.alignment());
    QCOMPARE(label.focusPolicy(), plain.focusPolicy());
    QCOMPARE(label.wordWrap(), plain.wordWrap());
    QCOMPARE(label.textFormat(), plain.textFormat());
    QCOMPARE(label.margin(), plain.margin());
    QCOMPARE(label.indent(), plain.indent());
}

void TestWidgetMarqueeLable::turnsTheTextByOneCharacter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("five letters") << "ABCDE" << QStringList({"BCDEA", "CDEAB", "DEABC", "EABCD", "ABCDE", "BCDEA"});
    QTest::newRow("two letters") << "AB" << QStringList({"BA", "AB", "BA"});
    QTest::newRow("blanks at the end") << "AB   " << QStringList({"B   A", "   AB", "  AB ", " AB  ", "AB   "});
    QTest::newRow("right to left") << QString::fromUtf8("אבג")
                                   << QStringList({QString::fromUtf8("בגא"), QString::fromUtf8("גאב")});
}

void TestWidgetMarqueeLable::turnsTheTextByOneCharacter()
{
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = text;
    for (int i = 0; i < shown.size(); ++i) {
        tick(&label);
        QCOMPARE(label.text(), shown.at(i));
        QCOMPARE(label.m_offset, int((i + 1) % text.length()));
    }
}

void TestWidgetMarqueeLable::neverChangesTheTextThatCirculates()
{
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = QStringLiteral("ABC");
    tick(&label, 1, 2);
    QCOMPARE(label.m_marqueeText, QStringLiteral("ABC"));
}

void TestWidgetMarqueeLable::isUnturnedAfterAsManyTicksAsCharacters_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("1") << 1;
    QTest::newRow("2") << 2;
    QTest::newRow("7") << 7;
    QTest::newRow("10,000") << 10000;
}

void TestWidgetMarqueeLable::isUnturnedAfterAsManyTicksAsCharacters()
{
    QFETCH(int, length);
    QString text;
    for (int i = 0; i < length; ++i)
        text += QChar('A' + i % 26);
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = text;
    tick(&label, 1, length);
    QCOMPARE(label.text(), text);
    QCOMPARE(label.m_offset, 0);
}

void TestWidgetMarqueeLable::countsOnWithAnEmptyText()
{
    WidgetMarqueeLable label(nullptr);
    label.setText(QStringLiteral("before"));
    tick(&label);
    QCOMPARE(label.text(), QString());
    QCOMPARE(label.m_offset, 1);
    tick(&label, 1, 4);
    QCOMPARE(label.text(), QString());
    QCOMPARE(label.m_offset, 5);
    label.m_offset = INT_MAX;
    tick(&label);
    QCOMPARE(label.text(), QString());
    QCOMPARE(label.m_offset, INT_MAX);
}

void TestWidgetMarqueeLable::staysAtZeroWithOneCharacter()
{
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = QStringLiteral("A");
    for (int i = 0; i < 3; ++i) {
        tick(&label);
        QCOMPARE(label.text(), QStringLiteral("A"));
        QCOMPARE(label.m_offset, 0);
    }
}

void TestWidgetMarqueeLable::everyTimerTurnsTheTextWhateverItsId()
{
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = QStringLiteral("ABC");
    label.m_timerId = 7;
    tick(&label, 8);
    QCOMPARE(label.text(), QStringLiteral("BCA"));
    tick(&label, 7);
    QCOMPARE(label.text(), QStringLiteral("CAB"));
    QCOMPARE(label.m_timerId, 7);
}

void TestWidgetMarqueeLable::startsAndStopsNoTimerItself()
{
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = QStringLiteral("ABC");
    label.setText(QStringLiteral("still"));
    label.show();
    passTime(250);
    QCOMPARE(label.text(), QStringLiteral("still"));
    QCOMPARE(label.m_timerId, 0);
}

void TestWidgetMarqueeLable::goesOnFromAnOffsetThatTheOwnerSets_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("shown");
    QTest::newRow("to the start") << 0 << "BCDEA";
    QTest::newRow("into the middle") << 2 << "DEABC";
    QTest::newRow("to the last") << 4 << "ABCDE";
}

void TestWidgetMarqueeLable::goesOnFromAnOffsetThatTheOwnerSets()
{
    QFETCH(int, offset);
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = QStringLiteral("ABCDE");
    tick(&label, 1, 3);
    label.m_offset = offset;
    tick(&label);
    QTEST(label.text(), "shown");
}

void TestWidgetMarqueeLable::survivesAnOffsetOutsideTheText_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("next");
    // The remainder keeps the sign, as in C++.
    QTest::newRow("past the end") << 12 << 3;
    QTest::newRow("far past the end") << 1000000 << 1;
    QTest::newRow("negative") << -3 << -2;
    QTest::newRow("far negative") << -14 << -3;
    QTest::newRow("the largest") << INT_MAX << 3;
    QTest::newRow("the smallest") << INT_MIN << -2;
}

void TestWidgetMarqueeLable::survivesAnOffsetOutsideTheText()
{
    QFETCH(int, offset);
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = QStringLiteral("ABCDE");
    label.m_offset = offset;
    tick(&label);
    QTEST(label.m_offset, "next");
}

namespace {

/// The text of a label before each event of a timer.
class TextsBeforeTimers : public QObject
{
public:
    QStringList seen;

    explicit TextsBeforeTimers(QLabel *label)
        : m_label(label)
    {
        label->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Timer)
            seen << m_label->text();
        return false;
    }

private:
    QLabel *const m_label;
};

}

void TestWidgetMarqueeLable::turnsWithARealTimer()
{
    WidgetMarqueeLable label(nullptr);
    label.m_marqueeText = QStringLiteral("ABC");
    TextsBeforeTimers texts(&label);
    const int timer = label.startTimer(20);
    EVENTUALLY(texts.seen.size() >= 4);
    QCOMPARE(texts.seen.mid(0, 4), QStringList({"", "BCA", "CAB", "ABC"}));
    label.killTimer(timer);
    const QString text = label.text();
    passTime(80);
    QCOMPARE(label.text(), text);
}

QTEST_MAIN(TestWidgetMarqueeLable)
#include "tst_widgetmarqueelable.moc"
