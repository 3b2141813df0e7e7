/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "about.h"

#include "lefttoright.h"

#include <KAboutData>
#include <KLocalizedString>

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>

#include <ormelusersqt_version.h>

void About::setApplicationData()
{
    KAboutData about(QStringLiteral("ormel-users"),
                     i18nc("@title name of the application", "Ormel Users"),
                     QStringLiteral(ORMELUSERSQT_VERSION_STRING),
                     i18n("Shows the user accounts, groups and resource limits of this machine."),
                     KAboutLicense::LGPL_V2_1,
                     i18nc("@info copyright", "© 2026 The Ormel Users contributors"));
    about.setLicense(KAboutLicense::LGPL_V2_1, KAboutLicense::OrLaterVersions);
    about.setDesktopFileName(QStringLiteral("org.ormel.users"));
    KAboutData::setApplicationData(about);
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("ormel-users")));
}

QMessageBox *About::createDialog(QWidget *parent)
{
    const KAboutData about = KAboutData::applicationData();
    const QStringList paragraphs{
        about.shortDescription(),
        about.copyrightStatement(),
        i18n("License: %1", about.licenses().constFirst().name(KAboutLicense::FullName)),
    };
    auto *dialog = new QMessageBox(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(i18nc("@title:window", "About Ormel Users"));
    dialog->setIconPixmap(QApplication::windowIcon().pixmap(64));
    dialog->setText(i18nc("@title %1 is the version", "Ormel Users %1", about.version()));
    dialog->setInformativeText(paragraphs.join(QLatin1String("\n\n")));
    dialog->setStandardButtons(QMessageBox::Close);
    // The name and the copyright are not translated.
    const auto labels = dialog->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        label->setAlignment(Qt::AlignVCenter | LeftToRight::lineStart());
    }
    return dialog;
}
