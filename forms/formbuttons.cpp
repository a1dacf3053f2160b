#include "formbuttons.h"

#include "formkeycells.h"
#include "formlook.h"

#include "platform/soundmanager.h"

FormSoftBtn::FormSoftBtn(QWidget *parent)
    : WidgetSoftBtn(true, parent, SoundManager::getInstance()),
      m_pointSize(14)
{
    FormLook::paintBackground(this);
    setAnnotationSheet(QLatin1String("background: transparent;"));
}

void FormSoftBtn::setBtnName(const QString &name)
{
    m_btnName = name;
    WidgetSoftBtn::setBtnName(name);
}

void FormSoftBtn::setPointSize(int pointSize)
{
    m_pointSize = pointSize;
    setFontStyle(ItemName, pointSize, true, QLatin1String("color: rgba(255, 255, 255, 255)"));
}

void FormSoftBtn::setAnnotationSheet(const QString &sheet)
{
    m_annotationSheet = sheet;
    setItemStyle(ItemAnnotation, sheet);
}

FormSelectTile::FormSelectTile(QWidget *parent)
    : QWidget(parent),
      m_tile(new WidgetSelectTile(this, SoundManager::getInstance()))
{
    FormLook::paintBackground(this);
}

void FormSelectTile::setContent(const QString &content)
{
    m_content = content;
    m_tile->setContent(content);
}

void FormSelectTile::resizeEvent(QResizeEvent *)
{
    m_tile->resize(size());
    if (isVisible()) {
        // The tile lays itself out for its size when it is shown.
        m_tile->hide();
        m_tile->show();
    }
}

FormKeypadBottom::FormKeypadBottom(QWidget *parent)
    : WidgetKeypadBottom(parent)
{
    FormLook::paintBackground(this);
    dressKeyCells(this);
}

void FormKeypadBottom::setButton1Text(const QString &text)
{
    m_button1Text = text;
    setItemText(ItemButton1, text);
}

void FormKeypadBottom::setButton2Text(const QString &text)
{
    m_button2Text = text;
    setItemText(ItemButton2, text);
}
