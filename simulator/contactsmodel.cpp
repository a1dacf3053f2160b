#include "contactsmodel.h"

#include "texts.h"
#include "widgetlistview.h"

#include <algorithm>
#include <iterator>

namespace {

const int ContactCount = 1000;

const char *const firstNames[] = {
    "Ada", "Ágnes", "Alma", "Bela", "Bérénice", "Bruno", "Carla", "Cosimo", "Dagny", "Dario",
    "Edda", "Émile", "Fenna", "Florian", "Gregor", "Gudrun", "Hanno", "Helmi", "Ida", "Íris",
    "Jarno", "Jonna", "Kalle", "Katinka", "Leander", "Lioba", "Mathilda", "Maximiliane", "Nadja", "Nils",
    "Ole", "Óscar", "Paloma", "Piet", "Quentin", "Ragna", "Ruben", "Selma", "Štefan", "Tamar",
    "Théo", "Uma", "Ülkü", "Valerie", "Vito", "Wanda", "Xenia", "Yara", "Zeno", "Zofia",
};

const char *const surnames[] = {
    "Alderbrook", "Ashgrove", "Bergholt", "Birkendal", "Brackwater", "Castelmore", "Dornfelt", "Drachenau",
    "Eschental", "Fairhollow", "Fallowmere", "Grauhof", "Greywether", "Haverstone",
    "Hohenwaldenburg-Lindenthal", "Ivendal", "Juniperus", "Karlsvik", "Kestrelby", "Larkenfield",
    "Lindqvarn", "Marlowick", "Mirabeau-Fontanelle", "Nordholm", "Oakhaven", "Peregrine", "Quellbach",
    "Ravensmoor", "Rosendahl", "Silberbach", "Sommerhaugen", "Thornbury", "Tiefenbrunn", "Umberleigh",
    "Valdemora", "van der Weidenbroek", "Westerlund", "Windermoor", "Ysenbrand", "Zirbelholz",
};

const char *const arabicFirstNames[] = {
    "أحمد", "آمنة", "أمل", "إياد", "باسم", "بشرى", "تامر", "ثريا", "جميلة", "جواد",
    "حازم", "حنان", "خالد", "خلود", "دانا", "ذكي", "رامي", "ريم", "زياد", "زينب",
    "سامي", "سلمى", "شادي", "شهد", "صفاء", "ضياء", "طارق", "ظافر", "عادل", "عبير",
    "غادة", "فارس", "قاسم", "كريم", "لبنى", "ماجد", "نور", "هاني", "وليد", "ياسمين",
};

const char *const arabicSurnames[] = {
    "البحري", "البستاني", "التلي", "الجبلي", "الجسري", "الحقلي", "الحدائقي", "الرملي", "الزيتوني",
    "الساحلي", "السهلي", "الشاطئي", "الشمالي", "الصخري", "الضفافي", "العشبي", "الغابي", "القمري", "المرجي",
    "المينائي من ضفاف البحيرة الكبرى", "النجمي", "النهري", "الوادي", "الوردي", "الياسميني",
};

const char *const groups[] = {"No group", "Family", "Friends", "Work"};

/// All of \a firsts with as many of \a lasts as it takes.
template <typename Names, typename MoreNames>
QStringList combine(const Names &firsts, const MoreNames &lasts)
{
    const int firstCount = int(std::size(firsts));
    const int lastCount = int(std::size(lasts));
    const int perFirst = ContactCount / firstCount;
    const int stride = lastCount / perFirst;
    QStringList names;
    for (int first = 0; first < firstCount; ++first) {
        for (int i = 0; i < perFirst; ++i) {
            const char *last = lasts[(7 * first + stride * i) % lastCount];
            names += QString::fromUtf8(firsts[first]) + QLatin1Char(' ') + QString::fromUtf8(last);
        }
    }
    return names;
}

/// What decides where \a name stands: without case and accents, the same on every machine.
QString sortKey(const QString &name)
{
    QString key;
    for (const QChar c : name.normalized(QString::NormalizationForm_KD)) {
        if (!c.isMark())
            key += c.toLower();
    }
    return key;
}

QStringList sortedNames()
{
    QStringList names = writesRightToLeft() ? combine(arabicFirstNames, arabicSurnames)
                                            : combine(firstNames, surnames);
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) { return sortKey(a) < sortKey(b); });
    return names;
}

}

ContactsModel::ContactsModel(QObject *parent)
    : QAbstractListModel(parent),
      m_noNumber(fromWritingSide(text("No number"))),
      m_simCard(fromWritingSide(text("SIM card")))
{
    for (const char *group : groups)
        m_groups += fromWritingSide(text(group));
    const QStringList names = sortedNames();
    for (int i = 0; i < names.size(); ++i) {
        const bool hasNumber = i % 23 != 5;
        const QString number = QString::asprintf("0555 %02d %02d %02d", (i * 37 + 14) % 100, (i * 13 + 71) % 100,
                                                   (i + 28) % 100);
        m_contacts.push_back({names.at(i), hasNumber ? number : QString(), i * 7 % 11 % int(m_groups.size()),
                              hasNumber && i % 5 == 2});
    }
}

int ContactsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_contacts.size());
}

QVariant ContactsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const Contact &contact = m_contacts[index.row()];
    switch (role) {
    case WidgetListView::TitleRole:
        return contact.name;
    case WidgetListView::ValuesRole:
        return values(contact);
    case WidgetListView::ValueIndexRole:
        return values(contact).size() > 1 ? contact.group : 0;
    case WidgetListView::MoreDepthRole:
        return true;
    case WidgetListView::ModifiableRole:
        return !contact.isOnSimCard;
    case WidgetListView::TitleDimmedRole:
    case WidgetListView::ValueDimmedRole:
        return contact.number.isEmpty();
    case NumberRole:
        return contact.number;
    case OnSimCardRole:
        return contact.isOnSimCard;
    default:
        return QVariant();
    }
}

bool ContactsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid())
        return false;
    Contact &contact = m_contacts[index.row()];
    if (role == NumberRole) {
        contact.number = value.toString();
    } else if (role == WidgetListView::ValueIndexRole && values(contact).size() > 1) {
        const int group = value.toInt();
        if (group < 0 || group >= m_groups.size())
            return false;
        contact.group = group;
    } else {
        return false;
    }
    emit dataChanged(index, index);
    return true;
}

QStringList ContactsModel::values(const Contact &contact) const
{
    if (contact.number.isEmpty())
        return m_noNumber;
    return contact.isOnSimCard ? m_simCard : m_groups;
}
