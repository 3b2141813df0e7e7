/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "choosebox.h"

#include "formrow.h"
#include "lefttoright.h"
#include "notelabel.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

ChooseBox::ChooseBox(const Texts &texts)
    : QGroupBox(texts.title)
    , m_nameEdit(new QLineEdit)
    , m_chosenEdit(new QPlainTextEdit)
{
    m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
    m_nameEdit->setPlaceholderText(texts.anyName);
    makeRoomForPlaceholder(m_nameEdit);
    m_note = new NoteLabel(m_nameEdit);
    connect(m_nameEdit, &QLineEdit::textChanged, this, [this, none = texts.noneChosen] {
        setNote(QString());
        setChosen(none);
    });

    auto *nameButton = new QPushButton(texts.chooseName);
    nameButton->setObjectName(QStringLiteral("nameButton"));
    nameButton->setAccessibleName(texts.chooseNameDescription);
    nameButton->setToolTip(texts.chooseNameDescription);
    connect(nameButton, &QPushButton::clicked, this, &ChooseBox::nameWanted);

    auto *severalButton = new QPushButton(texts.chooseSeveral);
    severalButton->setObjectName(QStringLiteral("severalButton"));
    connect(severalButton, &QPushButton::clicked, this, &ChooseBox::severalWanted);

    m_chosenEdit->setObjectName(QStringLiteral("chosenEdit"));
    m_chosenEdit->setPlainText(texts.noneChosen);
    m_chosenEdit->setReadOnly(true);
    m_chosenEdit->setTabChangesFocus(true);
    QTextOption option = m_chosenEdit->document()->defaultTextOption();
    option.setAlignment(LeftToRight::lineStart());
    m_chosenEdit->document()->setDefaultTextOption(option);
    m_chosenEdit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto *form = new QFormLayout(this);
    addRow(form, texts.name, {m_nameEdit, nameButton}, m_note);
    addRow(form, QString(), {severalButton});
    form->addRow(texts.chosen, m_chosenEdit);
    makeRoomForMnemonic(form->labelForField(m_chosenEdit), texts.chosen);
}

QString ChooseBox::name() const
{
    return m_nameEdit->text();
}

void ChooseBox::setName(const QString &name)
{
    m_nameEdit->setText(name);
}

void ChooseBox::setNote(const QString &note)
{
    m_note->setNote(note);
}

void ChooseBox::setChosen(const QString &text)
{
    m_chosenEdit->setPlainText(text);
}
