/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LOCALENCODING_H
#define LOCALENCODING_H

#include <QTextCodec>

/** Makes Qt use another encoding of the locale during its lifetime. */
class LocalEncoding
{
public:
    explicit LocalEncoding(const char *name)
        : m_before(QTextCodec::codecForLocale())
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
    }

    ~LocalEncoding()
    {
        QTextCodec::setCodecForLocale(m_before);
    }

private:
    Q_DISABLE_COPY(LocalEncoding)

    QTextCodec *m_before;
};

#endif
