/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "groupfixtures.h"
#include "localencoding.h"
#include "messagerecorder.h"
#include "sandbox.h"

#include <GroupInfo>

#include <QTest>

class GroupWarningsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void warnsOfUnknownName_data();
    void warnsOfUnknownName();
    void warnsInLocalEncoding();
    void warnsOfUnknownGid_data();
    void warnsOfUnknownGid();

    void warnsInDefaultCategoryWithoutContext();
};

void GroupWarningsTest::init()
{
    setGroups();
}

void GroupWarningsTest::warnsOfUnknownName_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("unknown") << QStringLiteral("nosuchgroup");
    QTest::newRow("empty") << QString(QLatin1String(""));
    QTest::newRow("null") << QString();
    QTest::newRow("with a placeholder") << QStringLiteral("%s%n%1");
    QTest::newRow("Latin-1") << QStringLiteral(u"caf\u00e9");
    QTest::newRow("beyond Latin-1") << QStringLiteral(u"\u30b0\u30eb\u30fc\u30d7");
    QTest::newRow("of another case") << QStringLiteral("Staff");
}

void GroupWarningsTest::warnsOfUnknownName()
{
    QFETCH(QString, name);

    MessageRecorder recorder;
    QCOMPARE(describe(GroupInfo::getGroup(name)), describe(GroupInfo()));
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(name)));
}

void GroupWarningsTest::warnsInLocalEncoding()
{
    const LocalEncoding latin1("ISO-8859-1");
    MessageRecorder recorder;
    GroupInfo::getGroup(QStringLiteral(u"caf\u00e9"));
    // Messages are decoded from UTF-8, in which the single byte is invalid.
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QStringLiteral(u"caf\ufffd"))));
}

void GroupWarningsTest::warnsOfUnknownGid_data()
{
    QTest::addColumn<uint>("gid");
    QTest::addColumn<QString>("warning");

    QTest::newRow("4711") << 4711u << "GroupInfo: unable to find group entry by gid: 4711";
    QTest::newRow("4294967294") << 4294967294u << "GroupInfo: unable to find group entry by gid: 4294967294";
}

void GroupWarningsTest::warnsOfUnknownGid()
{
    QFETCH(uint, gid);
    QFETCH(QString, warning);

    MessageRecorder recorder;
    QCOMPARE(describe(GroupInfo::getGroup(gid)), describe(GroupInfo()));
    QCOMPARE(recorder.takeTexts(), QStringList(warning));
}

void GroupWarningsTest::warnsInDefaultCategoryWithoutContext()
{
    MessageRecorder recorder;
    GroupInfo::getGroup(QStringLiteral("nosuchgroup"));
    GroupInfo::getGroup(4711u);
    Sandbox::remove(passwdPath());
    GroupInfo::getPrimaryGroups();
    Sandbox::remove(groupPath());
    GroupInfo::getGroups();

    QCOMPARE(recorder.messages().size(), 4);
    for (const MessageRecorder::Message &message : recorder.messages()) {
        QVERIFY2(message.isPlainWarning(), qPrintable(message.text));
    }
}

QTEST_GUILESS_MAIN(GroupWarningsTest)

#include "groupwarningstest.moc"
