#include "designerplugin.h"

#include "formclasses.h"
#include "formlook.h"

#include <QIcon>
#include <QMetaProperty>
#include <QScopedPointer>
#include <QWidget>

namespace {

/// What Designer edits the text \a property with.
QString textSpecification(const QMetaProperty &property)
{
    const QString name = QString::fromLatin1(property.name());
    if (name.endsWith(QLatin1String("Sheet"))) {
        return QStringLiteral("<stringpropertyspecification name=\"%1\" type=\"stylesheet\" notr=\"true\"/>").arg(name);
    }
    return QStringLiteral("<stringpropertyspecification name=\"%1\" type=\"singleline\"/>").arg(name);
}

QString textSpecifications(const QMetaObject *metaObject, const QByteArray &superclass)
{
    QString specifications;
    for (; metaObject->className() != superclass; metaObject = metaObject->superClass()) {
        for (int i = metaObject->propertyOffset(); i < metaObject->propertyCount(); ++i) {
            const QMetaProperty property = metaObject->property(i);
            if (QByteArray(property.typeName()) == "QString")
                specifications += textSpecification(property);
        }
    }
    return specifications;
}

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

}

FormClassPlugin::FormClassPlugin(const FormClass &formClass, QObject *parent)
    : QObject(parent),
      m_class(formClass)
{
}

QString FormClassPlugin::name() const
{
    return text(m_class.name);
}

QString FormClassPlugin::group() const
{
    return QStringLiteral("libwidget");
}

QString FormClassPlugin::toolTip() const
{
    return text(m_class.libraryClass) + QStringLiteral(": ") + text(m_class.toolTip);
}

QString FormClassPlugin::whatsThis() const
{
    return text(m_class.whatsThis);
}

QString FormClassPlugin::includeFile() const
{
    return text(m_class.header);
}

QIcon FormClassPlugin::icon() const
{
    return QIcon(QStringLiteral(":/libwidget/designer/icons/%1.png").arg(text(m_class.libraryClass).toLower()));
}

bool FormClassPlugin::isContainer() const
{
    return false;
}

QString FormClassPlugin::domXml() const
{
    const QScopedPointer<QWidget> widget(m_class.create(nullptr));
    const QSize size = widget->sizeHint();
    return QStringLiteral("<ui language=\"c++\" displayname=\"%1\">"
                          "<widget class=\"%2\" name=\"%3\">"
                          "<property name=\"geometry\"><rect><x>0</x><y>0</y><width>%4</width><height>%5</height></rect>"
                          "</property>%6</widget>"
                          "<customwidgets><customwidget><class>%2</class><extends>%7</extends><header>%8</header>"
                          "<propertyspecifications>%9</propertyspecifications></customwidget></customwidgets></ui>")
        .arg(text(m_class.displayName), name(), text(m_class.objectName), QString::number(size.width()),
             QString::number(size.height()), text(m_class.properties), text(m_class.superclass), includeFile(),
             textSpecifications(widget->metaObject(), m_class.superclass));
}

void FormClassPlugin::initialize(QDesignerFormEditorInterface *core)
{
    FormLook::designing = core != nullptr;
    m_isInitialized = true;
}

bool FormClassPlugin::isInitialized() const
{
    return m_isInitialized;
}

QWidget *FormClassPlugin::createWidget(QWidget *parent)
{
    QWidget *widget = m_class.create(parent);
    if (FormLook::designing && m_class.showSample)
        m_class.showSample(widget);
    return widget;
}

DesignerPlugin::DesignerPlugin(QObject *parent)
    : QObject(parent)
{
    for (const FormClass &formClass : formClasses())
        m_classes += new FormClassPlugin(formClass, this);
}

QList<QDesignerCustomWidgetInterface *> DesignerPlugin::customWidgets() const
{
    return m_classes;
}
