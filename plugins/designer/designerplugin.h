#ifndef DESIGNERPLUGIN_H
#define DESIGNERPLUGIN_H

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QObject>

struct FormClass;

/// One class of forms, as Designer and the loader of forms see it.
class FormClassPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    FormClassPlugin(const FormClass &formClass, QObject *parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QString domXml() const override;

    /// Only Designer calls this, not the loader of forms: from here on widgets show samples of what they will show.
    void initialize(QDesignerFormEditorInterface *core) override;
    bool isInitialized() const override;

    QWidget *createWidget(QWidget *parent) override;

private:
    const FormClass &m_class;
    bool m_isInitialized = false;
};

/// The widgets of the library, for Qt Designer and for programs that load forms while they run.
class DesignerPlugin : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)

public:
    explicit DesignerPlugin(QObject *parent = nullptr);

    QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface *> m_classes;
};

#endif
