#include "texts.h"

#include "platform/stringrc.h"

#include <QByteArray>
#include <QHash>

namespace {

struct Translation
{
    const char *english;
    const char *arabic;
};

const Translation translations[] = {
    // The device itself
    {"This is the first screen", "هذه هي الشاشة الأولى"},
    {"There is no such screen", "لا توجد شاشة كهذه"},
    {"Saved", "تم الحفظ"},
    {"Nothing to save", "لا شيء للحفظ"},
    {"Changes not saved", "لم تُحفظ التغييرات"},
    {"First row", "الصف الأول"},
    {"Last row", "الصف الأخير"},
    {"On", "تشغيل"},
    {"Off", "إيقاف"},

    // Settings
    {"Settings", "الإعدادات"},
    {"Sound", "الصوت"},
    {"Language", "اللغة"},
    {"English", "العربية"},  // the language in use
    {"Traffic announcements while travelling abroad", "إعلانات حركة المرور أثناء السفر إلى الخارج"},
    {"Always", "دائمًا"},
    {"Only on motorways", "على الطرق السريعة فقط"},
    {"Never", "أبدًا"},
    {"Brightness", "السطوع"},
    {"Alarm volume", "صوت المنبه"},
    {"Clock source", "مصدر الساعة"},
    {"Radio signal", "إشارة الراديو"},
    {"Favourite station", "المحطة المفضلة"},
    {"Favourite deleted", "تم حذف المحطة المفضلة"},
    {"Software update", "تحديث البرنامج"},
    {"Software is up to date", "البرنامج محدّث"},
    {"Never checked", "لم يتم الفحص بعد"},
    {"Checked at %1", "تم الفحص في %1"},
    {"About this device", "حول هذا الجهاز"},

    // Sound
    {"Key clicks", "نقرات المفاتيح"},
    {"Bass", "الجهير"},
    {"Treble", "الحدة"},
    {"Balance", "التوازن"},
    {"Centre", "الوسط"},
    {"Left %1", "يسار %1"},
    {"Right %1", "يمين %1"},
    {"Speed-dependent volume", "صوت حسب السرعة"},
    {"Low", "منخفض"},
    {"High", "مرتفع"},

    // About
    {"Model", "الطراز"},
    {"Serial no.", "الرقم"},
    {"Software", "البرنامج"},
    {"Hardware", "العتاد"},
    {"Memory", "الذاكرة"},
    {"Display", "الشاشة"},
    {"Tuner", "الموالف"},
    {"Stations", "المحطات"},
    {"Supply", "التغذية"},
    {"Antenna", "الهوائي"},
};

// Spaces of fixed width, in pixels of the fonts of a row.
const char16_t TitleSpace[] = u"\u2004";              // 4
const char16_t ValueSpace[] = u"\u2003\u2003\u2002\u2006";  // 34

const char16_t RightToLeftMark[] = u"\u200f";
const char16_t LeftToRightEmbedding[] = u"\u202a";
const char16_t EndOfEmbedding[] = u"\u202c";

QString withSpaceBefore(const char16_t *space, const QString &text)
{
    return QString::fromUtf16(RightToLeftMark) + QString::fromUtf16(space) + text;
}

QHash<QByteArray, QString> arabicTexts()
{
    QHash<QByteArray, QString> texts;
    for (const Translation &translation : translations)
        texts.insert(translation.english, QString::fromUtf8(translation.arabic));
    return texts;
}

}

QString text(const char *english)
{
    static const QHash<QByteArray, QString> arabic = arabicTexts();
    const QString original = QString::fromUtf8(english);
    return StringRC::getInstance()->m_rightToLeft ? arabic.value(english, original) : original;
}

QString rowTitle(const QString &title)
{
    return StringRC::getInstance()->m_rightToLeft ? withSpaceBefore(TitleSpace, title) : title;
}

QString rowValue(const QString &value)
{
    if (!StringRC::getInstance()->m_rightToLeft)
        return value;
    // Numbers keep their signs and units where they are.
    const QString inOneRun = value.isRightToLeft()
            ? value : QString::fromUtf16(LeftToRightEmbedding) + value + QString::fromUtf16(EndOfEmbedding);
    return withSpaceBefore(ValueSpace, inOneRun);
}
