#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# interface.sh LIBRARY: the binary interface is the one in data/interface. Classes that no public
# header defines are left out. After an intended change, run scripts/update abi.
set -euo pipefail

data=$(dirname "$0")/data/interface
exec abidiff --exported-interfaces-only --suppressions "$data/private.abignore" "$data/libormel-users-qt.abi" "$1"
