#include "formtitles.h"

#include "formlook.h"

#include "platform/soundmanager.h"

FormSimpleTitle::FormSimpleTitle(QWidget *parent)
    : WidgetSimpleTitle(parent, SoundManager::getInstance()),
      m_titleRect(0, 0, 220, 38)
{
    FormLook::paintBackground(this);
}

void FormSimpleTitle::setTitle(const QString &title)
{
    m_title = title;
    WidgetSimpleTitle::setTitle(title);
}

void FormSimpleTitle::setTitleRect(const QRect &rect)
{
    m_titleRect = rect;
    setItemGeometry(ItemTitle, rect.x(), rect.y(), rect.width(), rect.height());
    WidgetSimpleTitle::setTitle(m_title);
}

FormMenuTitle::FormMenuTitle(QWidget *parent)
    : WidgetMenuTitle(parent, SoundManager::getInstance()),
      m_changes(0)
{
    FormLook::paintBackground(this);
}

void FormMenuTitle::setTitle(const QString &title)
{
    m_title = title;
    WidgetMenuTitle::setTitle(title);
}

void FormMenuTitle::setIconSheet(const QString &sheet)
{
    m_iconSheet = sheet;
    setItemStyle(ItemIcon, FormLook::added(sheet.isEmpty() ? QString::fromLatin1("image: none;") : sheet, ++m_changes));
}

void FormMenuTitle::setInfoSheet(const QString &sheet)
{
    m_infoSheet = sheet;
    setItemStyle(ItemInfo, FormLook::added(sheet, ++m_changes));
}

void FormMenuTitle::setInfoRect(const QRect &rect)
{
    m_infoRect = rect;
    if (!rect.isNull())
        setItemGeometry(ItemInfo, rect.x(), rect.y(), rect.width(), rect.height());
}
