/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ORMELUSERSQT_EXPORT_H
#define ORMELUSERSQT_EXPORT_H

#include <QtGlobal>

// The build of the library defines ormel_users_qt_EXPORTS. Programs that compile its sources
// themselves define ORMELUSERSQT_STATIC_DEFINE.
#if defined(ORMELUSERSQT_STATIC_DEFINE)
#define ORMELUSERSQT_EXPORT
#define ORMELUSERSQT_NO_EXPORT
#elif defined(ormel_users_qt_EXPORTS)
#define ORMELUSERSQT_EXPORT Q_DECL_EXPORT
#define ORMELUSERSQT_NO_EXPORT Q_DECL_HIDDEN
#else
#define ORMELUSERSQT_EXPORT Q_DECL_IMPORT
#define ORMELUSERSQT_NO_EXPORT Q_DECL_HIDDEN
#endif

#endif
