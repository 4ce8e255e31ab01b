#pragma once

#include "widgets/Outlets.h"

namespace orv {

/// What shows the state of an account's backup and projects.
struct StatusOutlets {
    /// How things stand, in one line, with what can be done about it as a link.
    TextField _headline;
    ImageView _headlineImage;
    /// When the backup was complete last.
    TextField _lastBackup;

    Button _connectButton;
    TextField _connectionStatus;
    TextField _connectionInfo;
    /// The file server in use; hidden without one.
    TextField _connectedFSA;

    TextField _backupStatus1;
    TextField _backupStatus2;
    ImageView _backupStatusImage;
    Button _restoreProgressButton;

    TextField _projectsStatus1;
    TextField _projectsStatus2;
    ImageView _projectsStatusImage;

    TextField _activeAdapterText;
    TextField _speedText;
};

}  // namespace orv
