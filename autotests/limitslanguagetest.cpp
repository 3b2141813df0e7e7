/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsfixtures.h"

#include <QProcess>
#include <QTest>

namespace
{
/** What is the same for both programs: the texts that are translated when they are asked for. */
QStringList germanTexts()
{
    return {
        QString::fromUtf8("Die weiche Grenze.<br>Sie darf geändert werden."),
        QStringLiteral("102400 KiB"),
        QStringLiteral("Eingeschaltet"),
        QStringLiteral("Alle Benutzer"),
        QStringLiteral("Benutzer mit UIDs bis // ab //d"),
        QString::fromUtf8("Gruppe „staff“"),
        QString::fromUtf8("No such file or directory: Datei „/etc/security/limits.conf“"),
    };
}

QStringList englishTexts()
{
    return {
        QStringLiteral("This is the soft resource limit.<br>This type of limits is used by default and can be "
                       "changed by the user."),
        QStringLiteral("102400 KB"),
        QStringLiteral("Enabled"),
        QStringLiteral("All users"),
        QStringLiteral("User UID range from //d to //"),
        QStringLiteral("Group name: \"staff\""),
        QStringLiteral("Unable to open file \"/etc/security/limits.conf\": No such file or directory."),
    };
}

QStringList englishDescriptions()
{
    return {QStringLiteral("Maximum core file size."), QStringLiteral("The directory to chroot the user to.")};
}

QStringList germanDescriptions()
{
    return {QString::fromUtf8("Höchste Größe von Speicherabzügen."),
            QStringLiteral("Das Wurzelverzeichnis des Benutzers.")};
}
}

class LimitsLanguageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void translatesTexts_data();
    void translatesTexts();
};

void LimitsLanguageTest::initTestCase()
{
    Sandbox::remove(limitsPath());
}

void LimitsLanguageTest::translatesTexts_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");

    const QStringList linked{QStringLiteral(LINKED)};
    const QStringList loaded{QStringLiteral(LOADED), QStringLiteral(MODULE)};
    const QString german = QStringLiteral("de");
    const QString english = QStringLiteral("en_US");
    QTest::newRow("linked, de") << linked << german << englishDescriptions() + germanTexts();
    QTest::newRow("linked, en_US") << linked << english << englishDescriptions() + englishTexts();
    QTest::newRow("loaded, de") << loaded << german << germanDescriptions() + germanTexts();
    QTest::newRow("loaded, en_US") << loaded << english << englishDescriptions() + englishTexts();
}

void LimitsLanguageTest::translatesTexts()
{
    QFETCH(QStringList, command);
    QFETCH(QString, language);
    QFETCH(QStringList, texts);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LANGUAGE"), language);
    environment.insert(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral(CATALOGUES));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(command.first(), command.mid(1));
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    const QString output = QString::fromUtf8(process.readAllStandardOutput());
    QCOMPARE(output, texts.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

QTEST_GUILESS_MAIN(LimitsLanguageTest)

#include "limitslanguagetest.moc"
