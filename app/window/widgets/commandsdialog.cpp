/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "commandsdialog.h"

#include "commandsview.h"

#include <KLocalizedString>

#include <QDialogButtonBox>
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
    auto *buttonBox = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(view, 1);
    layout->addWidget(buttonBox);
    setMinimumWidth(characters * fontMetrics().averageCharWidth());
}
