/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "commandsdialog.h"

#include "commandsview.h"
#include "help.h"

#include <KLocalizedString>

#include <QDialogButtonBox>
#include <QShortcut>
#include <QVBoxLayout>

namespace
{
constexpr int characters = 72;
}

CommandsDialog::CommandsDialog(const QString &title, const Plan &plan, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(title);
    auto *view = new CommandsView(i18n("Nothing was changed. To make the change, run these commands as root:"), this);
    view->setPlan(plan, i18n("There is nothing to change."));
    auto *buttonBox = new QDialogButtonBox(QDialogButtonBox::Help | QDialogButtonBox::Close, this);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttonBox, &QDialogButtonBox::helpRequested, this, &CommandsDialog::showHelp);
    auto *helpKey = new QShortcut(QKeySequence::HelpContents, this);
    connect(helpKey, &QShortcut::activated, this, &CommandsDialog::showHelp);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(view, 1);
    layout->addWidget(buttonBox);
    setMinimumWidth(characters * fontMetrics().averageCharWidth());
}

void CommandsDialog::showHelp()
{
    const QString title = i18nc("@label what the administrator is to run", "Commands");
    Help::createDialog(QStringLiteral("commands"), title, {}, this)->open();
}
