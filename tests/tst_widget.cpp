#include "recordingplatform.h"
#include "widget.h"

#include "platform/soundmanager.h"

#include <QtTest>

class TestWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsInDigitKeyMode();
    void keysMeanDirectionsByKeyMode_data();
    void keysMeanDirectionsByKeyMode();
    void onlyTheMenuKeyIsOK_data();
    void onlyTheMenuKeyIsOK();
    void playsTheSoundThatItIsAskedFor();
    void isSilentWithoutASoundManager();
    void hasTwoSignalsInOrderAndNothingElse();
    void isAChildOfItsParentWithoutWindowFlags();
};

void TestWidget::init()
{
    RecordingPlatform::reset();
}

void TestWidget::startsInDigitKeyMode()
{
    Widget widget(nullptr, nullptr);
    QCOMPARE(widget.m_useFunctionKeys, false);
}

void TestWidget::keysMeanDirectionsByKeyMode_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("meaningOfDigits");
    QTest::addColumn<QString>("meaningOfFunctionKeys");
    QTest::newRow("2") << int(Qt::Key_2) << "up" << "";
    QTest::newRow("8") << int(Qt::Key_8) << "down" << "";
    QTest::newRow("4") << int(Qt::Key_4) << "left" << "";
    QTest::newRow("6") << int(Qt::Key_6) << "right" << "";
    QTest::newRow("F1") << int(Qt::Key_F1) << "" << "up";
    QTest::newRow("F2") << int(Qt::Key_F2) << "" << "down";
    QTest::newRow("F3") << int(Qt::Key_F3) << "" << "left";
    QTest::newRow("F4") << int(Qt::Key_F4) << "" << "right";
    QTest::newRow("the PC's up arrow") << int(Qt::Key_Up) << "" << "";
    QTest::newRow("5") << int(Qt::Key_5) << "" << "";
    QTest::newRow("0") << int(Qt::Key_0) << "" << "";
    QTest::newRow("no key") << 0 << "" << "";
}

static QString meaning(Widget &widget, int key)
{
    QStringList meanings;
    if (widget.isUpKey(key))
        meanings << "up";
    if (widget.isDownKey(key))
        meanings << "down";
    if (widget.isLeftKey(key))
        meanings << "left";
    if (widget.isRightKey(key))
        meanings << "right";
    return meanings.join(' ');
}

void TestWidget::keysMeanDirectionsByKeyMode()
{
    QFETCH(int, key);
    Widget widget(nullptr, nullptr);
    QTEST(meaning(widget, key), "meaningOfDigits");
    widget.m_useFunctionKeys = true;
    QTEST(meaning(widget, key), "meaningOfFunctionKeys");
}

void TestWidget::onlyTheMenuKeyIsOK_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("isOK");
    QTest::newRow("menu") << int(Qt::Key_Menu) << true;
    QTest::newRow("return") << int(Qt::Key_Return) << false;
    QTest::newRow("enter") << int(Qt::Key_Enter) << false;
    QTest::newRow("5") << int(Qt::Key_5) << false;
    QTest::newRow("select") << int(Qt::Key_Select) << false;
}

void TestWidget::onlyTheMenuKeyIsOK()
{
    QFETCH(int, key);
    Widget widget(nullptr, nullptr);
    QTEST(widget.isOKKey(key), "isOK");
    widget.m_useFunctionKeys = true;
    QTEST(widget.isOKKey(key), "isOK");
}

void TestWidget::playsTheSoundThatItIsAskedFor()
{
    Widget widget(nullptr, SoundManager::getInstance());
    widget.playSound(901);
    widget.playSound(925);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>() << 901 << 925);
}

void TestWidget::isSilentWithoutASoundManager()
{
    Widget widget(nullptr, nullptr);
    widget.playSound(901);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
}

void TestWidget::hasTwoSignalsInOrderAndNothingElse()
{
    const QMetaObject &meta = Widget::staticMetaObject;
    QCOMPARE(meta.className(), "Widget");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("visible()"));
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(), QByteArray("finished()"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestWidget::isAChildOfItsParentWithoutWindowFlags()
{
    QWidget parent;
    Widget *child = new Widget(&parent, nullptr);
    QCOMPARE(child->parentWidget(), &parent);
    QVERIFY(!child->isWindow());
}

QTEST_MAIN(TestWidget)
#include "tst_widget.moc"
