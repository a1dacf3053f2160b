#include "inspectorpanel.h"

#include "device.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

/// Several changes within this time are shown at once.
const int RefreshDelay = 60;

enum Column { FactColumn, CallColumn };

struct Fact
{
    QString name;
    QString call;  ///< what makes it so, as one would write it
};
using Facts = QList<Fact>;

QString className(const QObject *object)
{
    return QString::fromLatin1(object->metaObject()->className());
}

/// Such as "WidgetClock : Widget : QWidget".
QString classesOf(const QWidget *widget)
{
    QStringList names;
    for (const QMetaObject *meta = widget->metaObject(); meta; meta = meta->superClass()) {
        names += QString::fromLatin1(meta->className());
        if (meta == &QWidget::staticMetaObject)
            break;
    }
    return names.join(QStringLiteral(" : "));
}

/// \a text as a literal of C++.
QString quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    text.replace(QLatin1Char('"'), QStringLiteral("\\\""));
    text.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString truth(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

/// Such as "Qt::AlignLeft | Qt::AlignTop". The toolkit's own words have several for some.
QString alignmentWords(Qt::Alignment alignment)
{
    const struct
    {
        Qt::AlignmentFlag flag;
        const char *name;
    } flags[] = {
        {Qt::AlignLeft, "AlignLeft"},       {Qt::AlignRight, "AlignRight"},     {Qt::AlignHCenter, "AlignHCenter"},
        {Qt::AlignJustify, "AlignJustify"}, {Qt::AlignAbsolute, "AlignAbsolute"}, {Qt::AlignTop, "AlignTop"},
        {Qt::AlignBottom, "AlignBottom"},   {Qt::AlignVCenter, "AlignVCenter"}, {Qt::AlignBaseline, "AlignBaseline"},
    };
    QStringList words;
    for (const auto &known : flags) {
        if (alignment & known.flag)
            words += QStringLiteral("Qt::") + QLatin1String(known.name);
    }
    return words.join(QStringLiteral(" | "));
}

/// The word of a value of the toolkit's \a Enum, such as "Qt::LeftToRight".
template <typename Enum>
QString word(Enum value)
{
    return QStringLiteral("Qt::") + QLatin1String(QMetaEnum::fromType<Enum>().valueToKey(value));
}

QString weightOf(const QFont &font)
{
    if (font.italic())
        return QStringLiteral(", %1, true").arg(font.bold() ? QStringLiteral("QFont::Bold") : QStringLiteral("QFont::Normal"));
    return font.bold() ? QStringLiteral(", QFont::Bold") : QString();
}

QString fontCall(const QWidget *widget)
{
    const QFont &font = widget->font();
    const bool inPixels = font.pointSize() < 0;
    // Where a style sheet names a font, setFont() changes nothing.
    if (widget->styleSheet().contains(QLatin1String("font"))) {
        return QStringLiteral("setStyleSheet(\"font: %1%2%3 '%4'\")")
            .arg(font.bold() ? QStringLiteral("bold ") : QString())
            .arg(inPixels ? font.pixelSize() : font.pointSize())
            .arg(inPixels ? QStringLiteral("px") : QStringLiteral("pt"), font.family());
    }
    return QStringLiteral("setFont(QFont(%1, %2%3))")
        .arg(quoted(font.family())).arg(inPixels ? font.pixelSize() : font.pointSize()).arg(weightOf(font));
}

void addTextFacts(Facts &facts, const QWidget *widget)
{
    const auto add = [&facts](const char *name, const QString &call) { facts += {QString::fromLatin1(name), call}; };
    const auto addText = [&](const QString &text) { add("Text", QStringLiteral("setText(%1)").arg(quoted(text))); };
    const auto addAlignment = [&](Qt::Alignment alignment) {
        add("Alignment", QStringLiteral("setAlignment(%1)").arg(alignmentWords(alignment)));
    };
    if (const QLabel *label = qobject_cast<const QLabel *>(widget)) {
        addText(label->text());
        addAlignment(label->alignment());
    } else if (const QLineEdit *line = qobject_cast<const QLineEdit *>(widget)) {
        // Not what is hidden from those who look at the display.
        addText(line->displayText());
        addAlignment(line->alignment());
    } else if (const QAbstractButton *button = qobject_cast<const QAbstractButton *>(widget)) {
        addText(button->text());
    } else if (const QProgressBar *bar = qobject_cast<const QProgressBar *>(widget)) {
        add("Range", QStringLiteral("setRange(%1, %2)").arg(bar->minimum()).arg(bar->maximum()));
        add("Value", QStringLiteral("setValue(%1)").arg(bar->value()));
    }
}

Facts factsOf(const QWidget *widget)
{
    Facts facts;
    const auto add = [&facts](const char *name, const QString &call) { facts += {QString::fromLatin1(name), call}; };
    add("Class", classesOf(widget));
    add("Name", QStringLiteral("setObjectName(%1)").arg(quoted(widget->objectName())));
    const QRect place = widget->geometry();
    add("Geometry", QStringLiteral("setGeometry(%1, %2, %3, %4)")
                        .arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height()));
    add("Font", fontCall(widget));
    add("Style sheet", QStringLiteral("setStyleSheet(%1)").arg(quoted(widget->styleSheet())));
    addTextFacts(facts, widget);
    add("Visible", QStringLiteral("setVisible(%1)").arg(truth(!widget->isHidden())));
    add("Enabled", QStringLiteral("setEnabled(%1)").arg(truth(widget->isEnabled())));
    add("Focus", widget->hasFocus() ? QStringLiteral("setFocus()") : QStringLiteral("clearFocus()"));
    add("Takes the focus", QStringLiteral("setFocusPolicy(%1)").arg(word(widget->focusPolicy())));
    add("Direction", QStringLiteral("setLayoutDirection(%1)").arg(word(widget->layoutDirection())));
    return facts;
}

/// The widgets of the display from back to front, each before its children.
QList<QWidget *> widgetsIn(const QWidget *widget)
{
    QList<QWidget *> widgets;
    for (QObject *child : widget->children()) {
        if (!child->isWidgetType())
            continue;
        widgets += static_cast<QWidget *>(child);
        widgets += widgetsIn(static_cast<QWidget *>(child));
    }
    return widgets;
}

QTreeWidget *makeTree(const char *name, const QStringList &headers)
{
    QTreeWidget *tree = new QTreeWidget;
    tree->setObjectName(QString::fromLatin1(name));
    tree->setHeaderLabels(headers);
    return tree;
}

}

InspectorPanel::InspectorPanel(Device &device, QWidget *parent)
    : QWidget(parent),
      m_device(device),
      m_tree(makeTree("widgets", {QStringLiteral("Point at the display, or choose here")})),
      m_facts(makeTree("facts", {QStringLiteral("What"), QStringLiteral("The call that makes it so")}))
{
    m_facts->setRootIsDecorated(false);
    // Long calls are scrolled to.
    m_facts->header()->setStretchLastSection(false);
    m_facts->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_tree->setIndentation(12);

    QPushButton *copyButton = new QPushButton(QStringLiteral("Copy"));
    connect(copyButton, &QPushButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(text()); });
    QHBoxLayout *bar = new QHBoxLayout;
    bar->addStretch(1);
    bar->addWidget(copyButton);

    QSplitter *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_facts);
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addLayout(bar);

    connect(m_tree, &QTreeWidget::itemPressed, this, &InspectorPanel::choose);
    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(RefreshDelay);
    connect(&m_refreshTimer, &QTimer::timeout, this, &InspectorPanel::refresh);
}

void InspectorPanel::setWidget(QWidget *widget)
{
    if (widget == m_widget)
        return;
    m_widget = widget;
    refresh();
}

QString InspectorPanel::text() const
{
    QStringList lines;
    for (int i = 0; i < m_facts->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = m_facts->topLevelItem(i);
        lines += QStringLiteral("%1: %2").arg(item->text(FactColumn), item->text(CallColumn));
    }
    return lines.join(QLatin1Char('\n'));
}

bool InspectorPanel::eventFilter(QObject *watched, QEvent *event)
{
    // Whatever changes is painted, moved, shown or hidden.
    switch (event->type()) {
    case QEvent::Paint:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (!m_refreshTimer.isActive() && watched->isWidgetType()
            && m_device.isAncestorOf(static_cast<QWidget *>(watched)))
            m_refreshTimer.start();
        break;
    default:
        break;
    }
    return false;
}

void InspectorPanel::showEvent(QShowEvent *event)
{
    qApp->installEventFilter(this);
    refresh();
    QWidget::showEvent(event);
}

void InspectorPanel::hideEvent(QHideEvent *event)
{
    qApp->removeEventFilter(this);
    m_refreshTimer.stop();
    emit widgetChanged(nullptr);
    QWidget::hideEvent(event);
}

void InspectorPanel::refresh()
{
    const QList<QWidget *> widgets = widgetsIn(&m_device);
    if (widgets != m_listed) {
        m_listed = widgets;
        listWidgets();
    }
    for (auto it = m_widgets.constBegin(); it != m_widgets.constEnd(); ++it) {
        if (it.value() && it.value() == m_widget && m_tree->currentItem() != it.key()) {
            m_tree->setCurrentItem(it.key());
            m_tree->scrollToItem(it.key());
        }
        if (it.value())
            it.key()->setForeground(0, palette().brush(it.value()->isVisible() ? QPalette::Active : QPalette::Disabled,
                                                       QPalette::Text));
    }
    describe();
    emit widgetChanged(m_widget);
}

void InspectorPanel::listWidgets()
{
    m_widgets.clear();
    m_tree->clear();
    for (QObject *child : m_device.children()) {
        if (child->isWidgetType())
            addWidget(static_cast<QWidget *>(child), m_tree->invisibleRootItem());
    }
    m_tree->expandAll();
}

void InspectorPanel::addWidget(QWidget *widget, QTreeWidgetItem *parent)
{
    QTreeWidgetItem *item = new QTreeWidgetItem(parent);
    const QString name = widget->objectName();
    item->setText(0, name.isEmpty() ? className(widget) : QStringLiteral("%1 \"%2\"").arg(className(widget), name));
    m_widgets.insert(item, widget);
    for (QObject *child : widget->children()) {
        if (child->isWidgetType())
            addWidget(static_cast<QWidget *>(child), item);
    }
}

void InspectorPanel::describe()
{
    const Facts facts = m_widget ? factsOf(m_widget) : Facts();
    while (m_facts->topLevelItemCount() > facts.size())
        delete m_facts->topLevelItem(int(facts.size()));
    for (int i = 0; i < facts.size(); ++i) {
        QTreeWidgetItem *item = i < m_facts->topLevelItemCount() ? m_facts->topLevelItem(i) : new QTreeWidgetItem(m_facts);
        item->setText(FactColumn, facts[i].name);
        item->setText(CallColumn, facts[i].call);
        item->setToolTip(CallColumn, facts[i].call);
    }
}

void InspectorPanel::choose(QTreeWidgetItem *item)
{
    setWidget(m_widgets.value(item));
}
