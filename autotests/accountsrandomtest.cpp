/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "messagerecorder.h"
#include "sandbox.h"

#include <UserInfo>

#include <QTest>

#include <memory>
#include <random>

#include <grp.h>
#include <pwd.h>

namespace
{
/** One pseudo-random passwd and group file. Few names and ids, so that they meet often. */
class RandomAccounts
{
public:
    explicit RandomAccounts(unsigned seed)
        : m_random(seed)
    {
    }

    QByteArray passwd()
    {
        QByteArray lines;
        for (int i = below(12); i >= 0; --i) {
            lines += oneIn(8)
                ? malformedLine()
                : userName() + ":x:" + id() + ':' + id() + ':' + gecos() + ":/home/" + userName() + ":/bin/sh";
            lines += '\n';
        }
        return lines;
    }

    QByteArray group()
    {
        QByteArray lines;
        for (int i = below(16); i >= 0; --i) {
            lines += oneIn(8) ? malformedLine() : groupName() + ":x:" + id() + ':' + members();
            lines += '\n';
        }
        return lines;
    }

    bool oneIn(int count)
    {
        return below(count) == 0;
    }

private:
    int below(int bound)
    {
        return static_cast<int>(m_random() % static_cast<unsigned>(bound));
    }

    QByteArray oneOf(const QVector<QByteArray> &texts)
    {
        return texts.at(below(texts.size()));
    }

    QByteArray userName()
    {
        return oneOf({"root", "alice", "bob", "carol", "dave", "ren\xe9", "x", "+nis"});
    }

    QByteArray groupName()
    {
        return oneOf({"ormel-admin", "staff", "audio", "alice", "bob", "g\xe4ste", "wheel", "-nis"});
    }

    QByteArray id()
    {
        return oneOf({"0", "27", "29", "50", "999", "1000", "1001", "65534", "4294967294"});
    }

    QByteArray gecos()
    {
        return oneOf({"", "Alice,,,", "Ren\xc3\xa9", "\xff\xfe", "a:b"});
    }

    QByteArray members()
    {
        QByteArrayList names;
        for (int i = below(5); i > 0; --i) {
            names.append(oneIn(6) ? QByteArray() : userName());
        }
        return names.join(',');
    }

    QByteArray malformedLine()
    {
        return oneOf(
            {"", "#comment", "alice", ":::", "bob:x:abc:1000::/:", "staff:x", "::0:0:::", ":x:50:alice", "+", "  "});
    }

    std::mt19937 m_random;
};

struct Group {
    QString name;
    QStringList users;
    uint gid = 0;

    bool operator==(const Group &other) const
    {
        return name == other.name && gid == other.gid && users == other.users;
    }
};

/** What the lookups give and warn of when each is made by itself, one after the other. */
class StepByStep
{
public:
    QStringList warnings;

    QStringList users()
    {
        QStringList lines;
        const File file(fopen("/etc/passwd", "r"), fclose);
        if (!file) {
            warnings.append(userUnableToOpen(passwdPath()));
            return lines;
        }
        while (passwd *entry = fgetpwent(file.get())) {
            lines.append(user(entry));
        }
        return lines;
    }

    QStringList groups()
    {
        QStringList lines;
        const File file(fopen("/etc/group", "r"), fclose);
        if (!file) {
            warnings.append(groupUnableToOpen(groupPath()));
            return lines;
        }
        const QHash<uint, QStringList> primary = primaryGroups();
        while (const group *entry = fgetgrent(file.get())) {
            lines.append(text(completed(entry, primary)));
        }
        return lines;
    }

private:
    using File = std::unique_ptr<FILE, int (*)(FILE *)>;

    static QString shown(const QString &text)
    {
        return text.isNull() ? QStringLiteral("null") : text;
    }

    static QString text(const Group &group)
    {
        return shown(group.name) + QLatin1Char('(') + QString::number(group.gid) + QLatin1String(": ")
            + group.users.join(QLatin1Char(' ')) + QLatin1Char(')');
    }

    QString user(const passwd *entry)
    {
        const QString login = QString::fromLatin1(entry->pw_name);
        const uint uid = entry->pw_uid;
        const uint gid = entry->pw_gid;
        const group *primaryEntry = getgrgid(gid);
        const QString primaryName = primaryEntry ? QString::fromLatin1(primaryEntry->gr_name) : QString();
        const QString gecos = QString::fromUtf8(entry->pw_gecos);
        const QString home = QString::fromLatin1(entry->pw_dir);
        const QString shell = QString::fromLatin1(entry->pw_shell);

        const QVector<Group> groups = userGroups(entry);
        const Group primary = groupByName(primaryName);
        const Group admins = groupByName(QStringLiteral("ormel-admin"));
        const bool admin = !admins.name.isEmpty() && groups.contains(admins);

        QStringList groupTexts;
        for (const Group &group : groups) {
            groupTexts.append(text(group));
        }
        return QStringList({
                               shown(login),
                               QString::number(uid),
                               QString::number(gid),
                               shown(gecos),
                               shown(home),
                               shown(shell),
                               QLatin1String("primary ") + text(primary),
                               QLatin1String("groups ") + groupTexts.join(QLatin1String(", ")),
                               admin ? QStringLiteral("admin") : QStringLiteral("no admin"),
                           })
            .join(QLatin1String(" | "));
    }

    QVector<Group> userGroups(const passwd *entry)
    {
        QVector<Group> groups;
        QVector<gid_t> ids(1000);
        int count = ids.size();
        if (getgrouplist(entry->pw_name, entry->pw_gid, ids.data(), &count) == -1) {
            qFatal("More groups than were made");
        }
        for (int i = 0; i < count; ++i) {
            if (const group *found = getgrgid(ids.at(i))) {
                groups.append(groupByName(QString::fromLatin1(found->gr_name)));
            }
        }
        return groups;
    }

    Group groupByName(const QString &name)
    {
        const group *entry = getgrnam(name.toLatin1().constData());
        if (!entry) {
            warnings.append(groupNotFound(name));
            return Group();
        }
        return completed(entry, primaryGroups());
    }

    Group completed(const group *entry, const QHash<uint, QStringList> &primary)
    {
        Group result{QString::fromLatin1(entry->gr_name), {}, entry->gr_gid};
        QStringList all;
        for (char **member = entry->gr_mem; *member; ++member) {
            all.append(QString::fromLatin1(*member));
        }
        all.append(primary.value(result.gid));
        for (const QString &name : qAsConst(all)) {
            if (!result.users.contains(name)) {
                result.users.append(name);
            }
        }
        return result;
    }

    QHash<uint, QStringList> primaryGroups()
    {
        QHash<uint, QStringList> groups;
        const File file(fopen("/etc/passwd", "r"), fclose);
        if (!file) {
            warnings.append(groupUnableToOpen(passwdPath()));
            return groups;
        }
        while (const passwd *entry = fgetpwent(file.get())) {
            groups[entry->pw_gid].append(QString::fromLatin1(entry->pw_name));
        }
        return groups;
    }
};
}

class AccountsRandomTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void agreesWithLookupsMadeOneByOne_data();
    void agreesWithLookupsMadeOneByOne();
};

void AccountsRandomTest::initTestCase()
{
    Sandbox::removeExtraAccounts();
}

void AccountsRandomTest::agreesWithLookupsMadeOneByOne_data()
{
    QTest::addColumn<unsigned>("firstSeed");

    for (unsigned seed = 0; seed < 600; seed += 100) {
        QTest::addRow("seeds %u to %u", seed, seed + 99) << seed;
    }
}

void AccountsRandomTest::agreesWithLookupsMadeOneByOne()
{
    QFETCH(unsigned, firstSeed);

    for (unsigned seed = firstSeed; seed < firstSeed + 100; ++seed) {
        RandomAccounts random(seed);
        const QByteArray passwd = random.passwd();
        const QByteArray group = random.group();
        Sandbox::setAccounts(passwd, group);
        if (random.oneIn(20)) {
            Sandbox::remove(passwdPath());
        }
        if (random.oneIn(20)) {
            Sandbox::remove(groupPath());
        }
        const QByteArray files = "seed " + QByteArray::number(seed) + '\n' + passwd + "--\n" + group;

        StepByStep expected;
        const QStringList users = expected.users();
        const QStringList groups = expected.groups();

        MessageRecorder recorder;
        const QStringList actualUsers = describe(UserInfo::getUsers());
        const QStringList actualGroups = describe(GroupInfo::getGroups());
        const QStringList warnings = recorder.takeTexts();

        QVERIFY2(actualUsers == users, files.constData());
        QVERIFY2(actualGroups == groups, files.constData());
        QVERIFY2(warnings == expected.warnings, files.constData());
    }
}

QTEST_GUILESS_MAIN(AccountsRandomTest)

#include "accountsrandomtest.moc"
