/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "listcommands.h"

#include "recordtext.h"
#include "texttable.h"
#include "visibletext.h"

#include <GroupInfo>
#include <UserInfo>

#include <KLocalizedString>

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
QString jsonOption()
{
    return QStringLiteral("json");
}

/** The words for a truth value, translated once for all rows. */
class YesOrNo
{
public:
    QString operator()(bool value) const
    {
        return value ? m_yes : m_no;
    }

private:
    const QString m_yes = i18n("yes");
    const QString m_no = i18n("no");
};

QString joined(const QStringList &names)
{
    return RecordText::decode(names).join(QLatin1Char(','));
}

int printJson(const QJsonArray &array)
{
    return print(VisibleText::fromJson(QJsonDocument(array).toJson()));
}

QJsonObject toJson(const UserInfo &user)
{
    return {
        {QStringLiteral("name"), RecordText::decode(user.name())},
        {QStringLiteral("uid"), qint64(user.uid())},
        {QStringLiteral("gid"), qint64(user.gid())},
        {QStringLiteral("gecos"), user.gecos()},
        {QStringLiteral("home"), RecordText::decode(user.home())},
        {QStringLiteral("shell"), RecordText::decode(user.shell())},
        {QStringLiteral("primaryGroup"), RecordText::decode(user.primaryGroup().name())},
        {QStringLiteral("groups"), QJsonArray::fromStringList(RecordText::decode(user.groupNames()))},
        {QStringLiteral("admin"), user.isOrmelAdmin()},
        {QStringLiteral("system"), user.isSystem()},
    };
}

QJsonObject toJson(const GroupInfo &group)
{
    return {
        {QStringLiteral("name"), RecordText::decode(group.name())},
        {QStringLiteral("gid"), qint64(group.gid())},
        {QStringLiteral("members"), QJsonArray::fromStringList(RecordText::decode(group.users()))},
        {QStringLiteral("system"), group.isSystem()},
    };
}

template<typename Record>
QJsonArray toJson(const QList<Record> &records)
{
    QJsonArray array;
    for (const Record &record : records) {
        array.append(toJson(record));
    }
    return array;
}
}

QList<QCommandLineOption> listOptions()
{
    return {QCommandLineOption(jsonOption(), i18n("Print JSON instead of a table."))};
}

int listUsers(const QCommandLineParser &options, const QString & /*operand*/)
{
    const QList<UserInfo> users = UserInfo::getUsers();
    if (options.isSet(jsonOption())) {
        return printJson(toJson(users));
    }
    TextTable table({
        {i18n("Name")},
        {i18n("UID"), Qt::AlignRight},
        {i18n("Primary group")},
        {i18n("Groups")},
        {i18n("Admin")},
        {i18n("System")},
    });
    const YesOrNo yesOrNo;
    for (const UserInfo &user : users) {
        table.addRow({
            RecordText::decode(user.name()),
            QString::number(user.uid()),
            RecordText::decode(user.primaryGroup().name()),
            joined(user.groupNames()),
            yesOrNo(user.isOrmelAdmin()),
            yesOrNo(user.isSystem()),
        });
    }
    return print(table.toString());
}

int listGroups(const QCommandLineParser &options, const QString & /*operand*/)
{
    const QList<GroupInfo> groups = GroupInfo::getGroups();
    if (options.isSet(jsonOption())) {
        return printJson(toJson(groups));
    }
    TextTable table({
        {i18n("Name")},
        {i18n("GID"), Qt::AlignRight},
        {i18n("Members")},
        {i18n("System")},
    });
    const YesOrNo yesOrNo;
    for (const GroupInfo &group : groups) {
        table.addRow({
            RecordText::decode(group.name()),
            QString::number(group.gid()),
            joined(group.users()),
            yesOrNo(group.isSystem()),
        });
    }
    return print(table.toString());
}
