#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// Everything that panel and agent say to each other, by name. docs/agent-protocol.md tells what
// each means and what the other end does. All numbers in the payload of an agent event travel as
// text, all flags as "1" and "0", unless said otherwise there.

namespace orv {

/// The object string of every notification, unless SetNotificationObjectID replaces it.
inline constexpr const char* defaultNotificationObject = "com.corvanta.orv";

namespace notifications {
inline constexpr const char* settingsChanged = "com.quelm.client.SettingsChanged";
inline constexpr const char* connectionStatusChanged = "com.quelm.client.ConnectionStatusChanged";
inline constexpr const char* agentError = "com.quelm.client.AgentError";
inline constexpr const char* reportStatus = "com.quelm.client.ReportStatus";
inline constexpr const char* agentEvent = "com.quelm.client.AgentEvent";

inline constexpr std::array all = {settingsChanged, connectionStatusChanged, agentError,
                                   reportStatus, agentEvent};
}  // namespace notifications

/// What a SettingsChanged notification announces, as bits of its hint.
enum SettingsHint : std::uint32_t {
    HintAccountRecord = 0x0001,
    HintBackupSelection = 0x0002,
    HintDebugSettings = 0x0004,
    HintPrinters = 0x0080,
    HintActiveAccount = 0x0200,
    HintNetworkRules = 0x0400,
    HintFingerprints = 0x0800,
    HintExcludedFiles = 0x1000,
    HintAccess = 0x2000,
    HintAgentSettings = 0x4000,
    HintProjectSettings = 0x8000,
    /// Assumed where a notification has no hint.
    HintUnknown = 0xFE87,
};

/// What a ConnectionStatusChanged notification tells.
enum class ConnectionStatus : std::int32_t {
    Unknown = 0,
    /// No agent runs. Also what the panel starts with.
    NotRunning = 1,
    Connecting = 2,
    LoggingIn = 3,
    Connected = 4,
    WaitingToReconnect = 5,
    NoDiskSpace = 6,
};

/// Payload keys.
namespace keys {

// of the notifications themselves
inline constexpr const char* hint = "hint";
inline constexpr const char* agentId = "agent-id";
inline constexpr const char* status = "status";
inline constexpr const char* timestamp = "timestamp";
inline constexpr const char* tag = "tag";
inline constexpr const char* message = "message";
inline constexpr const char* domain = "domain";
inline constexpr const char* code = "code";
inline constexpr const char* eventName = "event_name";

// of backup events
inline constexpr const char* value = "value";
inline constexpr const char* foldersScanned = "folders-scanned";
inline constexpr const char* filesScanned = "files-scanned";
inline constexpr const char* files = "files";
inline constexpr const char* folders = "folders";
inline constexpr const char* count = "count";
inline constexpr const char* estimate = "estimate";
inline constexpr const char* remaining = "remaining";
inline constexpr const char* totalBytes = "total-bytes";
inline constexpr const char* storedBytes = "stored-bytes";
inline constexpr const char* totalProgress = "total-progress";
inline constexpr const char* totalFiles = "total-files";
inline constexpr const char* storedFiles = "stored-files";
inline constexpr const char* bannedFiles = "banned-files";
inline constexpr const char* nextUploadTimestamp = "next-upload-timestamp";
inline constexpr const char* backupStoppedQuota = "backup-stopped-quota";
inline constexpr const char* xmlParsing = "xml-parsing";
inline constexpr const char* infoUrl = "info-url";
inline constexpr const char* warnMessage = "warn-mesg";
inline constexpr const char* warnUrl = "warn-url";
inline constexpr const char* startOffset = "start-offset";
inline constexpr const char* timeLeft = "time-left";
inline constexpr const char* openSharingWindow = "open_sharing_window";
inline constexpr const char* tab = "tab";

// of network events
inline constexpr const char* output = "output";
inline constexpr const char* input = "input";
inline constexpr const char* outputMax = "outputmax";
inline constexpr const char* inputMax = "inputmax";
inline constexpr const char* description = "description";
inline constexpr const char* limitBackup = "limit-backup";
inline constexpr const char* uniqueId = "unique-id";
inline constexpr const char* allow = "allow";
inline constexpr const char* list = "list";

// of project events
inline constexpr const char* outFiles = "outfiles";
inline constexpr const char* outBytes = "outbytes";
inline constexpr const char* inFiles = "infiles";
inline constexpr const char* inBytes = "inbytes";
inline constexpr const char* pushStatus = "push-status";
inline constexpr const char* sendCount = "send-count";
inline constexpr const char* receiveCount = "receive-count";
inline constexpr const char* projectsIds = "projects-ids";
inline constexpr const char* projectIds = "project-ids";
inline constexpr const char* subscribeXmls = "subscribe-xmls";
inline constexpr const char* projectRoot = "project-root";
inline constexpr const char* running = "running";
inline constexpr const char* command = "command";
inline constexpr const char* result = "result";
inline constexpr const char* payload = "payload";
inline constexpr const char* error = "error";
inline constexpr const char* errorDetail = "error-detail";
inline constexpr const char* path = "path";
inline constexpr const char* masterProjectFolder = "mpf";
inline constexpr const char* id = "id";
inline constexpr const char* errorFlag = "err";
inline constexpr const char* low = "low";
inline constexpr const char* itemId = "item_id";
inline constexpr const char* lockHolder = "lock_holder";
inline constexpr const char* lockHolderId = "lock_holder_id";
inline constexpr const char* lock = "lock";
inline constexpr const char* lockTime = "locktime";
inline constexpr const char* lockDetails = "lockdetails";

// of "sync_request" and its answers
inline constexpr const char* computeSynced = "compute-synced";
inline constexpr const char* projectList = "project-list";
inline constexpr const char* projectId = "project-id";
inline constexpr const char* projectPath = "project-path";
inline constexpr const char* fullPath = "full-path";
inline constexpr const char* folderId = "folder-id";
inline constexpr const char* rootId = "root-id";
inline constexpr const char* mergeOption = "merge-option";
inline constexpr const char* name = "name";
inline constexpr const char* owner = "owner";
inline constexpr const char* password = "password";
inline constexpr const char* onlyFolders = "onlyfolders";
inline constexpr const char* sparse = "sparse";
inline constexpr const char* sizedFolderId = "folderid";
inline constexpr const char* size = "size";
inline constexpr const char* found = "found";
inline constexpr const char* fileId = "fid";
inline constexpr const char* serverCommand = "server-command";
inline constexpr const char* disableMove = "disable-move";
inline constexpr const char* violationsList = "violations-list";
inline constexpr const char* defaultFolder = "default-folder";

// of messages and logging
inline constexpr const char* title = "title";
inline constexpr const char* text = "text";
inline constexpr const char* urlText = "url-text";
inline constexpr const char* urlLink = "url-link";
inline constexpr const char* timeout = "timeout";
inline constexpr const char* hide = "hide";
inline constexpr const char* log = "log";

}  // namespace keys

/// Names of agent events.
namespace events {

// from the agent
inline constexpr const char* scanActivity = "scan_activity";
inline constexpr const char* shareStatistics = "share_stats";
inline constexpr const char* restoreProgress = "restore_progress";
inline constexpr const char* storeStatus = "store_status";
inline constexpr const char* storeFileStart = "store_file_start";
inline constexpr const char* storeFileEnd = "store_file_end";
inline constexpr const char* storeProgress = "store_progress";
inline constexpr const char* speedStatus = "speed_status";
inline constexpr const char* progressInfoUpdate = "progress-info-update";
inline constexpr const char* storageFolders = "storage_folders";
inline constexpr const char* storageQuota = "storage_quota";
inline constexpr const char* storageWindow = "storage_window";
inline constexpr const char* preferencesSelectTab = "preferences_select_tab";
inline constexpr const char* routingNetworkAdapter = "routing_network_adapter";
inline constexpr const char* reloadBandwidth = "reload_bandwidth";
inline constexpr const char* syncProgress = "sync_progress";
inline constexpr const char* syncCacheStatus = "sync_cache_status";
inline constexpr const char* syncQuotaStatus = "sync_quota_status";
inline constexpr const char* resetShowDialogSuccess = "reset_show_dialog_success";
inline constexpr const char* projectImportResponse = "project_import_response";
inline constexpr const char* projectsPolicyChanged = "projects-policy-changed";
inline constexpr const char* serverResponse = "server_response";
inline constexpr const char* syncResponse = "sync_response";
inline constexpr const char* syncError = "sync_error";
inline constexpr const char* syncItem = "sync_item";
inline constexpr const char* permissionsViolations = "permissions_violations";
inline constexpr const char* syncProjectQuota = "sync_project_quota";
inline constexpr const char* syncStatus = "sync_status";
inline constexpr const char* startLogging = "start_logging";

// in both directions
inline constexpr const char* requestDisconnect = "request_disconnect";
inline constexpr const char* lanInfo = "lan-info";

// to the agent
inline constexpr const char* syncRequest = "sync_request";
inline constexpr const char* showMessage = "show_message";
inline constexpr const char* requestConnect = "request_connect";
inline constexpr const char* requestStorageFolders = "req_storage_folders";
inline constexpr const char* storeShowStatus = "store_show_status";
inline constexpr const char* restoreShowStatus = "restore_show_status";
inline constexpr const char* resetShowDialog = "reset_show_dialog";
inline constexpr const char* routingBackupAllowed = "routing_backup_allowed";
inline constexpr const char* projectImportStart = "project_import_start";
inline constexpr const char* requestRelaunchStop = "request_relaunch_stop";
inline constexpr const char* requestRelaunchStart = "request_relaunch_start";

/// Those that only an agent does something with.
inline constexpr std::array forAgentsOnly = {
    syncRequest,        showMessage,         requestConnect,      requestStorageFolders,
    storeShowStatus,    restoreShowStatus,   resetShowDialog,     routingBackupAllowed,
    projectImportStart, requestRelaunchStop, requestRelaunchStart};

}  // namespace events

/// Values of "command" in a "sync_request"; a "sync_response" or "server_response" names its own.
namespace commands {
inline constexpr const char* getFolderInfo = "get-folder-info";
inline constexpr const char* browseFolder = "browse-folder";
inline constexpr const char* getFolderSize = "get-folder-size";
inline constexpr const char* syncLists = "sync-lists";
inline constexpr const char* permissionsViolationsList = "permissions-violations-list";
inline constexpr const char* fixPermissionsList = "fix-permissions-list";
inline constexpr const char* requestLockedItems = "request-locked-items";
inline constexpr const char* commitProjects = "commit-projects";
inline constexpr const char* subscribedProjects = "subscribed-projects";
inline constexpr const char* notSubscribedProjects = "not-subscribed-projects";
inline constexpr const char* subscribe = "subscribe";
inline constexpr const char* connectProject = "connect-project";
inline constexpr const char* setPartialSubscribe = "set-partial-subscribe";
inline constexpr const char* getPartialSubscribe = "get-partial-subscribe";
inline constexpr const char* setProjectPath = "set-project-path";
inline constexpr const char* unsubscribe = "unsubscribe";
inline constexpr const char* createExternal = "create-external";
inline constexpr const char* updateProjectPath = "update-project-path";
// as the server calls it
inline constexpr const char* getFolderSizeOnServer = "getFolderSize";
// of "lan-info"
inline constexpr const char* requestFileServers = "request-FSA-list";
inline constexpr const char* responseFileServers = "response-FSA-list";
}  // namespace commands

/// The title of every "show_message".
inline constexpr const char* messageTitle = "Tidewell Backup";

}  // namespace orv
