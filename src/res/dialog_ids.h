// The ids of the dialogs and their controls, for the resource compiler too.
#pragma once

#define QUORVEL_DIALOG_PROGRESS 24000
#define QUORVEL_PROGRESS_STATUS 24001
#define QUORVEL_PROGRESS_BAR 24002
