#ifndef CONTACTSMODEL_H
#define CONTACTSMODEL_H

#include <QAbstractListModel>
#include <QStringList>

#include <vector>

/// A telephone book of a thousand contacts for a WidgetListView, always the same ones, by first name. Nobody is called
/// so on purpose.
///
/// The values of a contact are the groups that it may be in. One on the SIM card can be in none, and cannot be changed.
/// One without a number is dimmed until it is given one.
class ContactsModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { NumberRole = Qt::UserRole, OnSimCardRole };

    /// In the language in use; see text().
    explicit ContactsModel(QObject *parent);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    /// The number and, where there are several, the group of a contact can be set.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    struct Contact
    {
        QString name;
        QString number;
        int group;
        bool isOnSimCard;
    };

    QStringList values(const Contact &contact) const;

    std::vector<Contact> m_contacts;
    QStringList m_groups;
    QStringList m_noNumber;
    QStringList m_simCard;
};

#endif
