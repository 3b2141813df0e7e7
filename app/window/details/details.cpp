/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "details.h"

#include "formrow.h"
#include "linelabel.h"
#include "linklabel.h"
#include "pagelayout.h"
#include "plaintext.h"
#include "readingorder.h"
#include "searchwords.h"
#include "visibletext.h"

#include <QAction>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

namespace
{
/** How wide the details stay, in characters. */
constexpr int minCharacters = 40;

constexpr qreal titleScale = 1.3;

QPushButton *createButton(QAction *action)
{
    auto *button = new QPushButton(action->icon(), action->text());
    button->setObjectName(action->objectName());
    makeRoomForMnemonic(button, button->text());
    button->setEnabled(action->isEnabled());
    QObject::connect(action, &QAction::changed, button, [action, button] { button->setEnabled(action->isEnabled()); });
    QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    return button;
}
}

Details::Details(int pictureSize, QWidget *parent)
    : ContentArea(parent)
{
    setMinimumWidth(minCharacters * fontMetrics().averageCharWidth());

    auto *content = new QWidget(this);
    m_picture = new QLabel(content);
    m_picture->setObjectName(QStringLiteral("picture"));
    m_picture->setFixedSize(pictureSize, pictureSize);
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setWordWrap(true);
    m_title = new LineLabel(content);
    m_title->setObjectName(QStringLiteral("title"));
    QFont font = m_title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * titleScale);
    m_title->setFont(font);
    m_remarks = PlainText::createLabel("remarks", content);

    auto *names = new QVBoxLayout;
    names->addWidget(m_title);
    names->addWidget(m_remarks);
    names->addStretch();
    auto *head = new QHBoxLayout;
    head->addWidget(m_picture, 0, Qt::AlignTop);
    head->addLayout(names, 1);

    m_fields = new QWidget(content);
    m_fieldsLayout = new QGridLayout(m_fields);
    m_fieldsLayout->setContentsMargins({});
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins({});
    layout->addLayout(head);
    layout->addSpacing(layout->spacing());
    layout->addWidget(m_fields);
    layout->addStretch();
    setWidget(content);
}

QSize Details::pictureSize() const
{
    return m_picture->size();
}

void Details::setPicture(const QPixmap &picture, const QString &name)
{
    m_picture->setAccessibleName(name);
    if (picture.isNull()) {
        m_picture->clear();
        m_picture->setText(name);
    } else {
        m_picture->setPixmap(picture);
    }
}

void Details::setTitle(const QString &title)
{
    setText(*m_title, title);
}

void Details::setRemarks(const QStringList &remarks)
{
    m_remarks->setText(ReadingOrder::ofSentence(remarks.join(QLatin1Char('\n'))));
}

LineLabel *Details::addField(const QString &title)
{
    auto *field = new LineLabel(m_fields);
    field->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    addField(title, field);
    setText(*field, QString());
    return field;
}

LinkLabel *Details::addLinks(const QString &title)
{
    auto *field = new LinkLabel(m_fields);
    addField(title, field);
    connect(field, &LinkLabel::followed, this, &Details::followed);
    return field;
}

void Details::addField(const QString &title, QLabel *field)
{
    // The tab key stops here, too, so that the text can be read out and copied.
    field->setFocusPolicy(Qt::StrongFocus);
    field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_titles.insert(field, PageLayout::addRow(m_fieldsLayout, title, field));
}

void Details::addButtons(const QList<QAction *> &actions)
{
    QVector<QWidget *> buttons;
    int width = 0;
    for (QAction *action : actions) {
        buttons.append(createButton(action));
        width += buttons.constLast()->sizeHint().width();
    }
    // On one line only if this makes the details no wider.
    const bool fit = width < minimumWidth();
    auto *line = new QBoxLayout(fit ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    for (QWidget *button : qAsConst(buttons)) {
        line->addWidget(button, 0, Qt::AlignLeading);
    }
    if (fit) {
        line->addStretch();
    }
    auto *layout = static_cast<QVBoxLayout *>(widget()->layout());
    layout->insertLayout(layout->count() - 1, line); // above the stretch
}

void Details::setText(LineLabel &field, const QString &text)
{
    const QString shown = text.isEmpty() ? QStringLiteral(u"\u2013") : VisibleText::fromText(text);
    field.setText(shown);
    field.updateGeometry(); // it wants as much room as the new text takes
    field.setAccessibleName(shown); // otherwise the elided text is read out
}

void Details::markHits(const SearchWords &search)
{
    for (auto title = m_titles.begin(); title != m_titles.end(); ++title) {
        const bool isHit = !search.hitsIn(title.key()->accessibleName()).isEmpty();
        (*title)->setAutoFillBackground(isHit);
        (*title)->setBackgroundRole(isHit ? QPalette::Highlight : QPalette::NoRole);
        (*title)->setForegroundRole(isHit ? QPalette::HighlightedText : QPalette::NoRole);
    }
}

void Details::setFieldVisible(LineLabel &field, bool visible)
{
    field.setVisible(visible);
    m_titles.value(&field)->setVisible(visible);
}
