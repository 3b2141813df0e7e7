/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccountpageparts.h"
#include "pageparts.h"
#include "sandbox.h"
#include "standin.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <crypt.h>

using namespace NewAccountParts;

extern "C" Q_DECL_EXPORT char *gost_crypt(const char *key, const char *setting);

namespace
{
bool s_gostIsMissing = false;
bool s_waitsForGost = false;
}

extern "C" Q_DECL_EXPORT char *gost_crypt(const char *key, const char *setting)
{
    static const auto next = original(gost_crypt, "gost_crypt");
    s_waitsForGost = isCursorShown(Qt::WaitCursor);
    return s_gostIsMissing ? nullptr : next(key, setting);
}

class NewAccountPasswordTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void hashesPassword_data();
    void hashesPassword();
    void forgetsHashOfOtherPassword();
    void saltsEachTime();
    void copiesHashes();
    void saysWhenNotHashed();
    void saysWhenGostIsMissing();
};

void NewAccountPasswordTest::init()
{
    Sandbox::setAccounts(existingUsers, existingGroups);
    s_gostIsMissing = false;
    s_waitsForGost = false;
}

void NewAccountPasswordTest::hashesPassword_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("byKey");

    QTest::newRow("button") << QStringLiteral("secret") << false;
    QTest::newRow("return key") << QStringLiteral("secret") << true;
    QTest::newRow("UTF-8") << QStringLiteral("Grüße 🙂") << false;
    QTest::newRow("empty") << QString() << false;
}

void NewAccountPasswordTest::hashesPassword()
{
    QFETCH(QString, password);
    QFETCH(bool, byKey);

    Page page;
    QVERIFY(page.open());
    QCOMPARE(page.password->echoMode(), QLineEdit::Password);
    page.password->insert(password);
    if (byKey) {
        QTest::keyClick(page.password, Qt::Key_Return);
    } else {
        page.hashButton->click();
    }
    QVERIFY(s_waitsForGost && !QApplication::overrideCursor());
    const QByteArray sha512 = page.sha512->text().toUtf8();
    QVERIFY(sha512.startsWith("$6$"));
    QCOMPARE(QByteArray(crypt(password.toUtf8().constData(), sha512.constData())), sha512);
    const QByteArray gost = page.gost->text().toUtf8();
    QVERIFY(gost.startsWith("$gost12512hash$"));
    QCOMPARE(QByteArray(gost_crypt(password.toUtf8().constData(), gost.constData())), gost);
    for (const QLineEdit *edit : {page.sha512, page.gost}) {
        QVERIFY(edit->isReadOnly());
        QCOMPARE(edit->cursorPosition(), 0); // so that the beginning is shown
        QCOMPARE(page.shownNote(edit->objectName()), QString());
    }
}

void NewAccountPasswordTest::forgetsHashOfOtherPassword()
{
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.password, QStringLiteral("secret"));
    page.hashButton->click();
    QTest::keyClicks(page.password, QStringLiteral("s"));
    QCOMPARE(page.sha512->text(), QString());
    QCOMPARE(page.gost->text(), QString());
}

void NewAccountPasswordTest::saltsEachTime()
{
    Page page;
    QVERIFY(page.open());
    page.hashButton->click();
    const QStringList first{page.sha512->text(), page.gost->text()};
    page.hashButton->click();
    QVERIFY(page.sha512->text() != first.at(0));
    QVERIFY(page.gost->text() != first.at(1));
}

void NewAccountPasswordTest::copiesHashes()
{
    Page page;
    QVERIFY(page.open());
    auto *copySha512 = part<QPushButton>(page, "copySha512Button");
    auto *copyGost = part<QPushButton>(page, "copyGostButton");
    QVERIFY(!copySha512->isEnabled() && !copyGost->isEnabled());

    page.hashButton->click();
    copySha512->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), page.sha512->text());
    copyGost->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), page.gost->text());
}

void NewAccountPasswordTest::saysWhenNotHashed()
{
    Page page;
    QVERIFY(page.open());
    page.password->setText(QStringLiteral("a").repeated(600));
    page.hashButton->click();
    QCOMPARE(page.sha512->text(), QString());
    QCOMPARE(page.shownNote(QStringLiteral("sha512HashEdit")), QStringLiteral("The password cannot be hashed."));
    QVERIFY(!part<QPushButton>(page, "copySha512Button")->isEnabled());

    page.password->clear();
    QCOMPARE(page.shownNote(QStringLiteral("sha512HashEdit")), QString());
}

void NewAccountPasswordTest::saysWhenGostIsMissing()
{
    s_gostIsMissing = true;
    Page page;
    QVERIFY(page.open());
    QTest::keyClicks(page.password, QStringLiteral("secret"));
    page.hashButton->click();
    QVERIFY(page.sha512->text().startsWith(QLatin1String("$6$")));
    QCOMPARE(page.gost->text(), QString());
    QCOMPARE(page.shownNote(QStringLiteral("gostHashEdit")),
             QStringLiteral("The GOST method is not available on this machine."));
    QVERIFY(!part<QPushButton>(page, "copyGostButton")->isEnabled());
}

QTEST_MAIN(NewAccountPasswordTest)

#include "newaccountpasswordtest.moc"
