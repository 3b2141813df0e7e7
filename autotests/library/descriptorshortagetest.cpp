/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "limitsfixtures.h"
#include "messagerecorder.h"
#include "openfiles.h"
#include "standin.h"

#include <UserInfo>
#include <UserUtils>

#include <QTest>
#include <QValidator>

#include <cerrno>
#include <cstdarg>
#include <memory>

#include <fcntl.h>
#include <sys/resource.h>

// What the library reads when no file descriptors are left, and while signals arrive.

namespace
{
int s_interruptions = 0;
}

extern "C" Q_DECL_EXPORT int open64(const char *path, int flags, ...)
{
    static const auto next = original(open64, "open64");
    if (s_interruptions > 0) {
        --s_interruptions;
        errno = EINTR;
        return -1;
    }
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return next(path, flags, mode);
}

namespace
{
/** Limits the number of open files during its lifetime. */
class DescriptorShortage
{
public:
    explicit DescriptorShortage(int left)
    {
        getrlimit(RLIMIT_NOFILE, &m_previous);
        rlimit limit = m_previous;
        limit.rlim_cur = 0;
        for (; left > 0 || isOpen(limit.rlim_cur); ++limit.rlim_cur) {
            left -= !isOpen(limit.rlim_cur);
        }
        setrlimit(RLIMIT_NOFILE, &limit);
    }

    ~DescriptorShortage()
    {
        setrlimit(RLIMIT_NOFILE, &m_previous);
    }

private:
    Q_DISABLE_COPY(DescriptorShortage)

    static bool isOpen(rlim_t descriptor)
    {
        return fcntl(static_cast<int>(descriptor), F_GETFD) != -1;
    }

    rlimit m_previous{};
};

/** Which of two names the pattern of adduser.conf allows. */
QStringList acceptedNames()
{
    const std::unique_ptr<QValidator> validator(UserUtils::createUserNameValidator(nullptr));
    QStringList accepted;
    for (QString name : {QStringLiteral("alice"), QStringLiteral("x1")}) {
        int position = 0;
        if (validator && validator->validate(name, position) == QValidator::Acceptable) {
            accepted.append(name);
        }
    }
    return accepted;
}
}

class DescriptorShortageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void readsAccounts_data();
    void readsAccounts();
    void readsLimits_data();
    void readsLimits();
    void findsStockPictures_data();
    void findsStockPictures();
    void opensAgainWhenInterrupted();

private:
    QStringList m_filesBefore;
};

void DescriptorShortageTest::initTestCase()
{
    Sandbox::setAccounts("alice:x:1000:1000::/:/bin/sh\n", "ormel-admin:x:27:alice\nalice:x:1000:\n");
    Sandbox::removeExtraAccounts();
    clearLimits();
    Sandbox::write(limitsPath(), "* - nproc 1\n");
    Sandbox::write(dropInPath(QStringLiteral("a.conf")), "* - core 2\n");
    Sandbox::clear(UserUtils::userIconPath());
    Sandbox::write(UserUtils::userIconPath() + QLatin1String("/face.png"), QByteArray());
    // The C library reads these once and keeps the result.
    UserInfo::getUsers();
    m_filesBefore = openFiles();
}

void DescriptorShortageTest::cleanup()
{
    QCOMPARE(openFiles(), m_filesBefore);
}

void DescriptorShortageTest::readsAccounts_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<QStringList>("users");
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QStringList>("warnings");

    const QString alice = QStringLiteral("alice | 1000 | 1000 |  | / | /bin/sh | ");
    QTest::newRow("none") << 0 << QStringList() << QStringList()
                          << QStringList({userUnableToOpen(passwdPath()), groupUnableToOpen(groupPath())});
    // The list takes that one, so that nothing can be looked up for its entries.
    QTest::newRow("one") << 1 << QStringList(alice + QLatin1String("primary null(0: ) | groups  | no admin"))
                         << QStringList({QStringLiteral("ormel-admin(27: alice)"), QStringLiteral("alice(1000: )")})
                         << QStringList(
                                {groupNotFound(QString()), noAdministrators(), groupUnableToOpen(passwdPath())});
    QTest::newRow("two") << 2
                         << QStringList(alice
                                        + QLatin1String("primary alice(1000: alice) | "
                                                        "groups alice(1000: alice), ormel-admin(27: alice) | admin"))
                         << QStringList(
                                {QStringLiteral("ormel-admin(27: alice)"), QStringLiteral("alice(1000: alice)")})
                         << QStringList();
}

void DescriptorShortageTest::readsAccounts()
{
    QFETCH(int, left);
    QFETCH(QStringList, users);
    QFETCH(QStringList, groups);
    QFETCH(QStringList, warnings);
    QStringList actualUsers;
    QStringList actualGroups;
    MessageRecorder recorder;
    {
        const DescriptorShortage shortage(left);
        actualUsers = describe(UserInfo::getUsers());
        actualGroups = describe(GroupInfo::getGroups());
    }
    QCOMPARE(actualUsers, users);
    QCOMPARE(actualGroups, groups);
    QCOMPARE(recorder.takeTexts(), warnings);
}

void DescriptorShortageTest::readsLimits_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<QString>("error");
    QTest::addColumn<int>("rules");

    QTest::newRow("none") << 0
                          << QStringLiteral("Unable to open file \"/etc/security/limits.conf\": Too many open files.")
                          << 0;
    QTest::newRow("one") << 1 << QString() << 2;
}

void DescriptorShortageTest::readsLimits()
{
    QFETCH(int, left);
    QFETCH(QString, error);
    QFETCH(int, rules);
    LimitsParser limits = readLimits();
    QString actualError;
    bool success = false;
    {
        const DescriptorShortage shortage(left);
        success = limits.readLimitsConf(actualError);
    }
    QCOMPARE(success, error.isEmpty());
    QCOMPARE(actualError, error);
    QCOMPARE(limits.fields().size(), rules);
}

void DescriptorShortageTest::findsStockPictures_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<QString>("picture");

    QTest::newRow("none") << 0 << QString();
    QTest::newRow("one") << 1 << QStringLiteral("/usr/share/kiv/faces/face.png");
}

void DescriptorShortageTest::findsStockPictures()
{
    QFETCH(int, left);
    QFETCH(QString, picture);
    QString actual;
    {
        const DescriptorShortage shortage(left);
        actual = UserUtils::getRandomUserIcon(false);
    }
    QCOMPARE(actual, picture);
}

void DescriptorShortageTest::opensAgainWhenInterrupted()
{
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[a-z]*\"\n");
    LimitsParser limits;
    QString error;

    s_interruptions = 3;
    QVERIFY(limits.readLimitsConf(error));
    QCOMPARE(s_interruptions, 0);
    QCOMPARE(limits.fields().size(), 2);

    s_interruptions = 3;
    QCOMPARE(acceptedNames(), QStringList(QStringLiteral("alice")));
    QCOMPARE(s_interruptions, 0);
}

QTEST_GUILESS_MAIN(DescriptorShortageTest)

#include "descriptorshortagetest.moc"
