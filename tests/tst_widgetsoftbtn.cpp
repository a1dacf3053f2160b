#include "displaywork.h"
#include "recordingplatform.h"
#include "widgetsoftbtn.h"

#include <QLabel>
#include <QtTest>

#include <climits>

using Item = WidgetSoftBtn::Item;

class TestWidgetSoftBtn : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hasAMetaObjectWithNothingInIt();
    void numbersItsParts();
    void takesNoFocus();
    void hasAnAnnotationOnlyIfAnnotated();
    void dressesFaceAndName();
    void annotationGetsItsPlaceAndNothingElse();
    void logsAndPlaysNothingWhenBuilt_data();
    void logsAndPlaysNothingWhenBuilt();

    void placesOnePart_data();
    void placesOnePart();
    void stylesOnePart_data();
    void stylesOnePart();
    void faceStyledBeforeTheShowIsSeen();
    void emptySheetClearsWhatWasThere();
    void annotationOfAButtonWithoutOneIsRejected();
    void unknownItemIsRejected_data();
    void unknownItemIsRejected();

    void fontIsBoldWhateverBoldSays_data();
    void fontIsBoldWhateverBoldSays();
    void fontOutlivesASheetThatLooksTheSame();
    void fontOfAnythingButTheNameIsInvalidAnnotatedOrNot_data();
    void fontOfAnythingButTheNameIsInvalidAnnotatedOrNot();

    void setBtnNameSetsTheName();
    void nameFollowsTheButtonWhenShown();
    void nameFollowsTheButtonWhenResized();
    void placeOfTheNameLastsUntilTheNextShowOrResizeOnly();
    void nameBuiltIsLargerThanTheButtonUntilShown();
    void whatIsSetAlreadyCostsNothing();
};

static QLabel *nameLabel(const WidgetSoftBtn &button)
{
    return button.findChildren<QLabel *>().at(0);
}

static QLabel *annotationLabel(const WidgetSoftBtn &button)
{
    return button.findChildren<QLabel *>().at(1);
}

static const QString s_notAnnotated = QStringLiteral("log:2:This is not annotated soft key...!");

void TestWidgetSoftBtn::init()
{
    RecordingPlatform::reset();
}

void TestWidgetSoftBtn::hasAMetaObjectWithNothingInIt()
{
    const QMetaObject &meta = WidgetSoftBtn::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetSoftBtn");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void TestWidgetSoftBtn::numbersItsParts()
{
    QCOMPARE(int(WidgetSoftBtn::ItemBackground), 0);
    QCOMPARE(int(WidgetSoftBtn::ItemAnnotation), 1);
    QCOMPARE(int(WidgetSoftBtn::ItemName), 2);
}

void TestWidgetSoftBtn::takesNoFocus()
{
    WidgetSoftBtn button(true, nullptr, nullptr);
    QCOMPARE(button.focusPolicy(), Qt::NoFocus);
}

void TestWidgetSoftBtn::hasAnAnnotationOnlyIfAnnotated()
{
    QWidget parent;
    WidgetSoftBtn *annotated = new WidgetSoftBtn(true, &parent, nullptr);
    WidgetSoftBtn *plain = new WidgetSoftBtn(false, &parent, nullptr);
    QCOMPARE(annotated->parentWidget(), &parent);
    QCOMPARE(annotated->findChildren<QWidget *>().size(), 2);
    QCOMPARE(annotated->findChildren<QLabel *>().size(), 2);
    QCOMPARE(plain->findChildren<QWidget *>().size(), 1);
    QCOMPARE(plain->findChildren<QLabel *>().size(), 1);
}

void TestWidgetSoftBtn::dressesFaceAndName()
{
    WidgetSoftBtn button(false, nullptr, nullptr);
    QCOMPARE(button.styleSheet(), QString("background-color: rgba(140, 130, 130, 255)"));
    const QLabel *name = nameLabel(button);
    QCOMPARE(name->styleSheet(), QString("color: rgba(255, 255, 255, 255)"));
    QCOMPARE(name->geometry(), QRect(0, 0, 220, 29));
    QCOMPARE(name->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    QCOMPARE(name->font().pointSize(), 14);
    QCOMPARE(int(name->font().weight()), int(QFont::Bold));
    QCOMPARE(name->font().family(), QFont().family());
    QCOMPARE(name->text(), QString());
}

void TestWidgetSoftBtn::annotationGetsItsPlaceAndNothingElse()
{
    WidgetSoftBtn button(true, nullptr, nullptr);
    const QLabel *annotation = annotationLabel(button);
    const QLabel plain;
    QCOMPARE(annotation->geometry(), QRect(0, 0, 23, 11));
    QCOMPARE(annotation->styleSheet(), QString());
    QCOMPARE(annotation->alignment(), plain.alignment());
    QVERIFY(!annotation->testAttribute(Qt::WA_SetFont));
}

void TestWidgetSoftBtn::logsAndPlaysNothingWhenBuilt_data()
{
    QTest::addColumn<bool>("annotated");
    QTest::newRow("annotated") << true;
    QTest::newRow("plain") << false;
}

void TestWidgetSoftBtn::logsAndPlaysNothingWhenBuilt()
{
    QFETCH(bool, annotated);
    WidgetSoftBtn button(annotated, nullptr, nullptr);
    button.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSoftBtn::placesOnePart_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("button") << 0;
    QTest::newRow("annotation") << 1;
    QTest::newRow("name") << 2;
}

void TestWidgetSoftBtn::placesOnePart()
{
    QFETCH(int, item);
    QWidget parent;
    WidgetSoftBtn *button = new WidgetSoftBtn(true, &parent, nullptr);
    const QList<QWidget *> parts = {button, annotationLabel(*button), nameLabel(*button)};
    QList<QRect> expected = {button->geometry(), annotationLabel(*button)->geometry(), nameLabel(*button)->geometry()};
    expected[item] = QRect(3, 4, 55, 66);
    button->setItemGeometry(Item(item), 3, 4, 55, 66);
    for (int i = 0; i < parts.size(); ++i)
        QCOMPARE(parts.at(i)->geometry(), expected.at(i));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSoftBtn::stylesOnePart_data()
{
    placesOnePart_data();
}

void TestWidgetSoftBtn::stylesOnePart()
{
    QFETCH(int, item);
    WidgetSoftBtn button(true, nullptr, nullptr);
    const QList<QWidget *> parts = {&button, annotationLabel(button), nameLabel(button)};
    QStringList expected = {button.styleSheet(), QString(), nameLabel(button)->styleSheet()};
    expected[item] = "color: red";
    button.setItemStyle(Item(item), "color: red");
    for (int i = 0; i < parts.size(); ++i)
        QCOMPARE(parts.at(i)->styleSheet(), expected.at(i));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSoftBtn::faceStyledBeforeTheShowIsSeen()
{
    WidgetSoftBtn button(false, nullptr, nullptr);
    button.resize(60, 29);
    button.setItemStyle(WidgetSoftBtn::ItemBackground, QStringLiteral("background-color: #102030"));
    button.show();
    QCOMPARE(button.grab().toImage().pixelColor(5, 5), QColor(0x10, 0x20, 0x30));
}

void TestWidgetSoftBtn::emptySheetClearsWhatWasThere()
{
    WidgetSoftBtn button(true, nullptr, nullptr);
    button.setItemStyle(WidgetSoftBtn::ItemBackground, QString());
    button.setItemStyle(WidgetSoftBtn::ItemName, QString());
    QCOMPARE(button.styleSheet(), QString());
    QCOMPARE(nameLabel(button)->styleSheet(), QString());
}

void TestWidgetSoftBtn::annotationOfAButtonWithoutOneIsRejected()
{
    WidgetSoftBtn button(false, nullptr, nullptr);
    const QRect place = button.geometry();
    const QString sheet = button.styleSheet();
    button.setItemGeometry(WidgetSoftBtn::ItemAnnotation, 1, 2, 3, 4);
    QCOMPARE(RecordingPlatform::events(), QStringList() << s_notAnnotated);
    button.setItemStyle(WidgetSoftBtn::ItemAnnotation, "color: red");
    QCOMPARE(RecordingPlatform::events(), QStringList() << s_notAnnotated << s_notAnnotated);
    QCOMPARE(button.geometry(), place);
    QCOMPARE(button.styleSheet(), sheet);
    QCOMPARE(nameLabel(button)->geometry(), QRect(0, 0, 220, 29));
    QCOMPARE(nameLabel(button)->styleSheet(), QString("color: rgba(255, 255, 255, 255)"));
}

void TestWidgetSoftBtn::unknownItemIsRejected_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("past the last") << 3;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetSoftBtn::unknownItemIsRejected()
{
    QFETCH(int, item);
    for (bool annotated : {false, true}) {
        RecordingPlatform::reset();
        WidgetSoftBtn button(annotated, nullptr, nullptr);
        button.setItemGeometry(Item(item), 1, 2, 3, 4);
        button.setItemStyle(Item(item), "color: red");
        QCOMPARE(RecordingPlatform::events(), QStringList() << "log:2:[setItemGeometry, 49] Unknown item!!"
                                                            << "log:2:[setItemStyle, 76] Unknown item!!");
        QCOMPARE(nameLabel(button)->geometry(), QRect(0, 0, 220, 29));
        QCOMPARE(button.styleSheet(), QString("background-color: rgba(140, 130, 130, 255)"));
    }
}

void TestWidgetSoftBtn::fontIsBoldWhateverBoldSays_data()
{
    QTest::addColumn<bool>("bold");
    QTest::newRow("bold") << true;
    QTest::newRow("not bold") << false;
}

void TestWidgetSoftBtn::fontIsBoldWhateverBoldSays()
{
    QFETCH(bool, bold);
    WidgetSoftBtn button(false, nullptr, nullptr);
    button.setFontStyle(WidgetSoftBtn::ItemName, 10, bold, "color: red");
    QCOMPARE(nameLabel(button)->font().pointSize(), 10);
    QCOMPARE(int(nameLabel(button)->font().weight()), int(QFont::Bold));
    QCOMPARE(nameLabel(button)->styleSheet(), QString("color: red"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetSoftBtn::fontOutlivesASheetThatLooksTheSame()
{
    WidgetSoftBtn button(false, nullptr, nullptr);
    button.setItemStyle(WidgetSoftBtn::ItemName, QStringLiteral("font-size: 20pt; font-weight: bold"));
    button.show();
    button.setFontStyle(WidgetSoftBtn::ItemName, 20, true, QStringLiteral("color: red"));
    QCOMPARE(nameLabel(button)->font().pointSize(), 20);
}

void TestWidgetSoftBtn::fontOfAnythingButTheNameIsInvalidAnnotatedOrNot_data()
{
    QTest::addColumn<bool>("annotated");
    QTest::addColumn<int>("item");
    QTest::newRow("button, annotated") << true << 0;
    QTest::newRow("button, plain") << false << 0;
    QTest::newRow("annotation, annotated") << true << 1;
    QTest::newRow("annotation, plain") << false << 1;
    QTest::newRow("past the last") << true << 3;
    QTest::newRow("negative") << true << -1;
}

void TestWidgetSoftBtn::fontOfAnythingButTheNameIsInvalidAnnotatedOrNot()
{
    QFETCH(bool, annotated);
    QFETCH(int, item);
    WidgetSoftBtn button(annotated, nullptr, nullptr);
    button.setFontStyle(Item(item), 10, true, "color: red");
    QCOMPARE(RecordingPlatform::events(), QStringList() << "log:2:Invalid item!!");
    QCOMPARE(nameLabel(button)->font().pointSize(), 14);
    QCOMPARE(nameLabel(button)->styleSheet(), QString("color: rgba(255, 255, 255, 255)"));
    QCOMPARE(button.styleSheet(), QString("background-color: rgba(140, 130, 130, 255)"));
    if (annotated)
        QCOMPARE(annotationLabel(button)->styleSheet(), QString());
}

void TestWidgetSoftBtn::setBtnNameSetsTheName()
{
    WidgetSoftBtn button(true, nullptr, nullptr);
    button.setBtnName("Options");
    QCOMPARE(nameLabel(button)->text(), QString("Options"));
    QCOMPARE(annotationLabel(button)->text(), QString());
    button.setBtnName(QString());
    QCOMPARE(nameLabel(button)->text(), QString());
}

void TestWidgetSoftBtn::nameFollowsTheButtonWhenShown()
{
    QWidget parent;
    parent.show();
    WidgetSoftBtn *button = new WidgetSoftBtn(true, &parent, nullptr);
    button->setGeometry(5, 6, 100, 20);
    button->show();
    QCOMPARE(nameLabel(*button)->geometry(), QRect(0, 0, 100, 20));
    QCOMPARE(annotationLabel(*button)->geometry(), QRect(0, 0, 23, 11));
}

void TestWidgetSoftBtn::nameFollowsTheButtonWhenResized()
{
    WidgetSoftBtn button(false, nullptr, nullptr);
    button.show();
    button.resize(100, 20);
    QCOMPARE(nameLabel(button)->geometry(), QRect(0, 0, 100, 20));
    button.setItemGeometry(WidgetSoftBtn::ItemBackground, 0, 0, 90, 25);
    QCOMPARE(nameLabel(button)->geometry(), QRect(0, 0, 90, 25));
}

void TestWidgetSoftBtn::placeOfTheNameLastsUntilTheNextShowOrResizeOnly()
{
    WidgetSoftBtn button(false, nullptr, nullptr);
    button.resize(100, 20);
    button.show();
    button.setItemGeometry(WidgetSoftBtn::ItemName, 10, 2, 50, 10);
    button.setBtnName("Options");
    QCOMPARE(nameLabel(button)->geometry(), QRect(10, 2, 50, 10));
    button.resize(101, 20);
    QCOMPARE(nameLabel(button)->geometry(), QRect(0, 0, 101, 20));

    button.setItemGeometry(WidgetSoftBtn::ItemName, 10, 2, 50, 10);
    button.hide();
    QCOMPARE(nameLabel(button)->geometry(), QRect(10, 2, 50, 10));
    button.show();
    QCOMPARE(nameLabel(button)->geometry(), QRect(0, 0, 101, 20));
}

void TestWidgetSoftBtn::nameBuiltIsLargerThanTheButtonUntilShown()
{
    QWidget parent;
    WidgetSoftBtn *button = new WidgetSoftBtn(false, &parent, nullptr);
    button->setItemGeometry(WidgetSoftBtn::ItemBackground, 0, 0, 100, 20);
    QCOMPARE(nameLabel(*button)->geometry(), QRect(0, 0, 220, 29));
    parent.show();
    QCOMPARE(nameLabel(*button)->geometry(), QRect(0, 0, 100, 20));
}

void TestWidgetSoftBtn::whatIsSetAlreadyCostsNothing()
{
    QWidget parent;
    WidgetSoftBtn *button = new WidgetSoftBtn(true, &parent, nullptr);
    const auto configure = [button] {
        button->setItemGeometry(WidgetSoftBtn::ItemBackground, 5, 6, 100, 20);
        button->setItemGeometry(WidgetSoftBtn::ItemAnnotation, 0, 0, 20, 10);
        button->setItemGeometry(WidgetSoftBtn::ItemName, 0, 0, 100, 20);
        button->setItemStyle(WidgetSoftBtn::ItemBackground, "background-color: #202020");
        button->setItemStyle(WidgetSoftBtn::ItemAnnotation, "color: #808080");
        button->setFontStyle(WidgetSoftBtn::ItemName, 12, true, "color: white");
        button->setBtnName("Options");
    };
    configure();
    QVERIFY(showAndPaint(parent));
    QCOMPARE(workOf(parent, configure), QStringList());
}

QTEST_MAIN(TestWidgetSoftBtn)
#include "tst_widgetsoftbtn.moc"
