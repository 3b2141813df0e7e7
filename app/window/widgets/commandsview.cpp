/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "commandsview.h"

#include "formrow.h"
#include "messages.h"
#include "plaintext.h"
#include "readingorder.h"
#include "scriptfile.h"

#include <KLocalizedString>

#include <QClipboard>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QResizeEvent>
#include <QVBoxLayout>

namespace
{
constexpr int visibleLines = 5;

/** The least width of the texts, in characters. */
constexpr int minCharacters = 40;

QString warning()
{
    return i18n(
        "The commands contain a password hash. Let nobody read them; while they run, other users can see the hash "
        "in the list of processes.");
}

QPushButton *createButton(const char *name, const char *icon, const QString &text)
{
    auto *button = new QPushButton(QIcon::fromTheme(QString::fromLatin1(icon)), text);
    button->setObjectName(QString::fromLatin1(name));
    makeRoomForMnemonic(button, text);
    return button;
}

/** The height of a few lines. */
int heightOf(const QPlainTextEdit &edit, int lines)
{
    const int margins = 2 * (edit.frameWidth() + qRound(edit.document()->documentMargin()));
    return lines * edit.fontMetrics().lineSpacing() + margins;
}
}

CommandsView::CommandsView(const QString &heading, QWidget *parent)
    : QWidget(parent)
    , m_text(heading)
    , m_heading(PlainText::createLabel("commandsHeading", this))
    , m_commands(new QPlainTextEdit(this))
    , m_buttons(createButtons())
    , m_notes(PlainText::createLabel("commandsNotes", this))
{
    m_commands->setObjectName(QStringLiteral("commandsEdit"));
    m_commands->setAccessibleName(i18nc("@label what the administrator is to run", "Commands"));
    m_commands->setReadOnly(true);
    m_commands->setTabChangesFocus(true);
    m_commands->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_commands->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_commands->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_commands->setLayoutDirection(Qt::LeftToRight);
    m_commands->setMinimumHeight(heightOf(*m_commands, visibleLines));

    m_heading->setMinimumWidth(minCharacters * fontMetrics().averageCharWidth());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_heading);
    layout->addWidget(m_commands, 1);
    layout->addWidget(m_buttons);
    layout->addWidget(m_notes);
}

QWidget *CommandsView::createButtons()
{
    auto *copyButton =
        createButton("copyCommandsButton", "edit-copy", i18nc("@action:button copy commands", "Cop&y Commands"));
    connect(copyButton, &QPushButton::clicked, this, &CommandsView::copy);
    auto *saveButton =
        createButton("saveScriptButton", "document-save-as", i18nc("@action:button", "Save as S&cript…"));
    connect(saveButton, &QPushButton::clicked, this, &CommandsView::save);
    auto *buttons = new QWidget(this);
    auto *layout = new QHBoxLayout(buttons);
    layout->setContentsMargins({});
    layout->addWidget(copyButton);
    layout->addWidget(saveButton);
    layout->addStretch();
    return buttons;
}

void CommandsView::setPlan(const Plan &plan, const QString &nothing)
{
    m_plan = plan;
    const bool isEmpty = plan.commands.isEmpty();
    m_heading->setText(ReadingOrder::ofSentence(isEmpty ? nothing : m_text));
    m_commands->setPlainText(QString::fromUtf8(plan.toText().trimmed()));
    m_commands->setVisible(!isEmpty);
    m_buttons->setVisible(!isEmpty);
    const QStringList notes = plan.holdsHash ? plan.notes + QStringList(warning()) : plan.notes;
    m_notes->setText(ReadingOrder::ofSentence(notes.join(QLatin1Char('\n'))));
    m_notes->setVisible(!notes.isEmpty());
}

QSize CommandsView::minimumSizeHint() const
{
    const QSize hint = QWidget::minimumSizeHint();
    return {hint.width(), qMax(hint.height(), layout()->minimumHeightForWidth(qMax(width(), hint.width())))};
}

void CommandsView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        updateGeometry();
    }
}

void CommandsView::copy() const
{
    QGuiApplication::clipboard()->setText(QString::fromUtf8(m_plan.toText()));
}

void CommandsView::save()
{
    const QString title = i18nc("@title:window", "Save as Script");
    const QString path = QFileDialog::getSaveFileName(window(),
                                                      title,
                                                      QStringLiteral("accounts.sh"),
                                                      i18nc("@item:inlistbox types of files", "Shell scripts (*.sh)"));
    const QString error = path.isEmpty() ? QString() : writeScript(path, m_plan);
    if (!error.isEmpty()) {
        Messages::reportUnwritten(window(), title, path, error);
    }
}
