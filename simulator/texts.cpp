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

    // Main menu
    {"Radio", "الراديو"},
    {"Route", "المسار"},
    {"Message", "رسالة"},
    {"More", "المزيد"},
    {"User guide", "دليل المستخدم"},
    {"Notes", "ملاحظات"},

    // Radio
    {"FM", "إف إم"},
    {"Radio North", "راديو الشمال"},
    {"Evening concert from the old harbour, with the city orchestra",
     "حفل مسائي من الميناء القديم مع أوركسترا المدينة وضيوفها"},
    {"Local news at half past", "الأخبار المحلية عند النصف"},
    {"Traffic radio", "راديو المرور"},
    {"Campus", "راديو الجامعة"},
    {"Fog on the A8", "ضباب على الطريق 8"},
    {"A8 northbound: jam of 12 km after an accident", "الطريق 8 شمالًا: ازدحام لمسافة 12 كم بعد حادث"},
    {"Announcements are off", "الإعلانات متوقفة"},
    {"No announcements here", "لا إعلانات هنا"},

    // Route
    {"Fast", "الأسرع"},
    {"Short", "الأقصر"},
    {"Without motorways and ferries if possible", "بدون طرق سريعة أو عبّارات إن أمكن"},

    // Memory
    {"Memory (KB)", "الذاكرة (ك.ب)"},
    {"Messages", "الرسائل"},
    {"Maps", "الخرائط"},
    {"Memory card", "بطاقة الذاكرة"},
    {"Everything deleted", "تم حذف الكل"},

    // User guide
    {"Smaller", "أصغر"},
    {"Larger", "أكبر"},
    {"Back", "السابق"},
    {"Welcome", "أهلًا وسهلًا"},
    {"This device is worked by keys alone. The keys with arrows lead through menus, OK opens or saves, and ESC goes "
     "back. Wherever you come back to, all is as you left it.",
     "يُستخدم هذا الجهاز بالمفاتيح وحدها. تنقلك مفاتيح الأسهم في القوائم، ويفتح OK أو يحفظ، ويعود ESC إلى الوراء. "
     "وحيثما عدت تجد كل شيء كما تركته."},
    {"Main menu", "القائمة الرئيسية"},
    {"Left and right turn the menu. On the keys 1, 3, 7 and 9 you can try what the status bar shows: reception, "
     "phone, messages and battery.",
     "يدير اليسار واليمين القائمة. وبالمفاتيح 1 و3 و7 و9 يمكنك تجربة ما يعرضه شريط الحالة: الاستقبال والهاتف "
     "والرسائل والبطارية."},
    {"Radio and traffic announcements", "الراديو وإعلانات حركة المرور على الطرق"},
    {"Left and right choose one of six stations, up and down the volume, and OK switches traffic announcements on "
     "and off. Key 5 lets one come in; it goes by itself, or with ESC.",
     "يختار اليسار واليمين إحدى ست محطات، ويغيّر الأعلى والأسفل مستوى الصوت، ويشغّل OK إعلانات حركة المرور أو "
     "يوقفها. ويُظهر المفتاح 5 إعلانًا يختفي وحده أو بالمفتاح ESC."},
    {"Writing", "الكتابة"},
    {"Press a key several times to come to its second and third letter. Wait for a moment before you write another "
     "letter of the same key. The keys * and # lead to capitals and digits.",
     "اضغط المفتاح عدة مرات للوصول إلى حرفه الثاني والثالث. وانتظر لحظة قبل كتابة حرف آخر من المفتاح نفسه. "
     "ويقود المفتاحان * و# إلى الحروف الكبيرة والأرقام."},
    {"Up and down choose a memory. Left frees some of it, right fills it again, and OK deletes all that is in it.",
     "يختار الأعلى والأسفل ذاكرة. ويحرر اليمين جزءًا منها، ويملؤها اليسار من جديد، ويحذف OK كل ما فيها."},
    // Settings
    {"Settings", "الإعدادات"},
    {"Sound", "الصوت"},
    {"Language", "اللغة"},
    {"English", "العربية"},  // the language in use
    {"Route options for journeys abroad", "خيارات المسار للرحلات إلى الخارج"},
    {"Traffic announcements", "إعلانات حركة المرور"},
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

    // Home
    {"Sunday", "الأحد"},
    {"Monday", "الاثنين"},
    {"Tuesday", "الثلاثاء"},
    {"Wednesday", "الأربعاء"},
    {"Thursday", "الخميس"},
    {"Friday", "الجمعة"},
    {"Saturday", "السبت"},

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

    // Clock
    {"Watchdog", "المراقب"},
    {"Clock", "الساعة"},
    {"Date", "التاريخ"},
    {"Chip", "شريحة"},
    {"12 hours", "12 ساعة"},
    {"24 hours", "24 ساعة"},
    {"Seconds", "مع الثواني"},
    {"No seconds", "بدون ثوانٍ"},
    {"Day first", "اليوم أولًا"},
    {"Month first", "الشهر أولًا"},
    {"Clock chip works", "شريحة الساعة تعمل"},
    {"Clock chip fails", "شريحة الساعة معطلة"},

    // Contacts
    {"Contacts", "جهات الاتصال"},
    {"No group", "بلا مجموعة"},
    {"Family", "العائلة"},
    {"Friends", "الأصدقاء"},
    {"Work", "العمل"},
    {"SIM card", "بطاقة SIM"},
    {"No number", "لا رقم"},
    {"Number", "الرقم"},
    {"Group", "المجموعة"},
    {"Stored on", "محفوظة في"},
    {"Device", "الجهاز"},

    // Text entry
    {"Device name", "اسم الجهاز"},
    {"Password", "كلمة المرور"},
    {"Not set", "غير معيّن"},
    {"New password", "كلمة مرور جديدة"},
    {"Password set", "تم تعيين كلمة المرور"},
    {"No password", "لا كلمة مرور"},
    {"Your message", "رسالتك"},
    {"Message sent", "تم إرسال الرسالة"},
    {"Nothing to send", "لا شيء للإرسال"},

    // Notes
    {"Note %1 of %2", "ملاحظة %1 من %2"},
    {"No notes", "لا ملاحظات"},
    {"Note deleted", "تم حذف الملاحظة"},
    {"Next", "التالي"},
    {"Large", "كبير"},
    {"Bread, milk, apples and coffee. A fuse for the radio, the red one.",
     "خبز وحليب وتفاح وقهوة. وفيوز للراديو، الأحمر."},
    {"The tunnel is closed until Sunday. Take the road along the coast.",
     "النفق مغلق حتى الأحد. اسلك طريق الساحل."},
    {"Anna's birthday! Call her before noon.", "عيد ميلاد آنا! اتصل بها قبل الظهر."},
};

const char16_t RightToLeftMark[] = u"\u200f";
const char16_t LeftToRightEmbedding[] = u"\u202a";
const char16_t EndOfEmbedding[] = u"\u202c";

QHash<QByteArray, QString> arabicTexts()
{
    QHash<QByteArray, QString> texts;
    for (const Translation &translation : translations)
        texts.insert(translation.english, QString::fromUtf8(translation.arabic));
    return texts;
}

}

bool writesRightToLeft()
{
    return StringRC::getInstance()->m_rightToLeft;
}

QString text(const char *english)
{
    static const QHash<QByteArray, QString> arabic = arabicTexts();
    const QString original = QString::fromUtf8(english);
    return writesRightToLeft() ? arabic.value(english, original) : original;
}

QString fromWritingSide(const QString &text)
{
    if (!writesRightToLeft() || text.isRightToLeft())
        return text;
    // Numbers keep their signs and units where they are.
    return QString::fromUtf16(RightToLeftMark) + QString::fromUtf16(LeftToRightEmbedding) + text
            + QString::fromUtf16(EndOfEmbedding);
}
