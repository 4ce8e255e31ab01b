#include "qt/host/PanelHost.h"

#include <QApplication>
#include <QLabel>
#include <cstdlib>
#include <utility>

#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/files/SafeRemoval.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"
#include "qt/branding/BrandWindow.h"
#include "support/VarBranding.h"
#include "sync/locks/LockedFilesList.h"
#include "sync/projects/ProjectsList.h"

namespace orv {

namespace {

constexpr std::chrono::seconds endPatience(10);
constexpr std::chrono::seconds folderPatience(2);

/// Says what is waited for before there is a window.
std::unique_ptr<QWidget> waitingNotice() {
    auto label = std::make_unique<QLabel>(QString::fromStdString(quelm::GetLocalizedString(
        "PrefPane.WaitingForSettings",
        "Another program is using the settings. The panel opens as soon as it is done.")));
    label->setMargin(32);
    label->setWindowTitle(QCoreApplication::applicationName());
    return label;
}

}  // namespace

PanelHost::PanelHost(const quelm::Bundle& bundle, Appearance appearance)
    : bundle_(bundle),
      services_(platform::ProcessServices()),
      files_(*services_.runLoop),
      watchedFiles_(files_, *services_.runLoop),
      busAndKeychain_(*services_.runLoop),
      folders_(*services_.runLoop),
      scans_(*services_.runLoop),
      hidden_(*services_.runLoop),
      icons_(QString::fromStdString(bundle.resourcesFolder()), appearance),
      context_{updates_, icons_, [this](const std::string& address) {
                   if (pane_) pane_->openLink(address);
               }} {}

PanelHost::~PanelHost() {
    if (window_) window_->hide();  // which saves
    pane_.reset();
    windows_.reset();
    filePanels_.reset();
    alerts_.reset();
    window_.reset();
    LockedFilesList::destroyInstance();
    ProjectsList::destroyInstance();
    AccountList::destroyDefaultAccountList();
    const bool isStored = files_.waitUntilIdle(endPatience);
    if (!isStored)
        quelm::LogError("Another program holds the settings: the last changes are not stored.");
    const bool areIdle = folders_.waitUntilIdle(folderPatience) && hidden_.waitUntilIdle({});
    if (!isStored || !areIdle) endWithoutThreads(isStored);
}

/// A thread that waits for a lock, or for a volume that does not answer, would be waited for.
void PanelHost::endWithoutThreads(bool isStored) {
    static_cast<void>(busAndKeychain_.waitUntilIdle(endPatience));
    static_cast<void>(EndAgentEvents(folderPatience));
    std::_Exit(isStored ? EXIT_SUCCESS : EXIT_FAILURE);
}

void PanelHost::start(std::function<void()> started) {
    auto accounts = std::make_shared<AccountList::Accounts>();
    auto notice = std::make_shared<std::unique_ptr<QWidget>>();
    watchedFiles_.setTold([notice](bool isSlow) {
        *notice = isSlow ? waitingNotice() : nullptr;
        if (*notice) (*notice)->show();
    });
    watchedFiles_.perform(
        [accounts] {
            *accounts = AccountList::loadAccounts(AccountList::defaultConfigPath());
            // what the window would wait for when it asks first
            LookUpComputerDefaults();
            static_cast<void>(orv_VarBranding::instance());
        },
        [this, accounts, notice, started = std::move(started)] {
            makePanel(std::move(*accounts));
            notice->reset();
            if (pane_) started();
        });
}

void PanelHost::makePanel(AccountList::Accounts accounts) {
    AccountList& list = AccountList::createDefaultAccountList(std::move(accounts), watchedFiles_);
    protectAccounts(list);
    ProjectsList::createInstance(&watchedFiles_);
    BrandIcons(icons_, *orv_VarBranding::instance());
    application_.emplace(LocalAgentApplication::Environment{
        *services_.notifications, *services_.workspace, busAndKeychain_,
        LocalAgentApplication::programBeside("orvAgent")});
    window_ = std::make_unique<MainWindow>(context_, outlets_);
    if (windowMade_) windowMade_(*window_);
    alerts_.emplace(icons_, window_.get());
    filePanels_.emplace(window_.get());
    windows_.emplace(context_, *window_);
    pane_ = orvPreferencePane::initWithBundle(
        &bundle_, outlets_,
        {services_, AgentEventDispatcher::defaultDispatcher(), list,
         ProjectsList::defaultProjectsList(), LockedFilesList::defaultLockedFilesList(),
         watchedFiles_, busAndKeychain_, folders_, scans_, hidden_, *alerts_, *filePanels_,
         clipboard_, *application_, *windows_, violations_});
    if (!pane_) return QApplication::exit(EXIT_FAILURE);
    window_->setShownChanged([this](bool isShown) {
        if (!pane_) return;
        if (isShown) {
            pane_->didSelect();
        } else {
            pane_->didUnselect();
        }
    });
    pane_->mainViewDidLoad();
    updates_.flush();
    window_->show();
    if (!waitingAddress_.empty()) open(std::exchange(waitingAddress_, {}));
}

/// What no removal takes unless it is meant.
void PanelHost::protectAccounts(const AccountList& accounts) const {
    quelm::os::RemovalRules rules;
    for (std::size_t i = 0; const Account* const account = accounts.accountAtIndex(i); ++i)
        rules.protectedFolders.push_back(account->accountFolderPath());
    quelm::os::SetRemovalRules(std::move(rules));
}

void PanelHost::open(const std::string& address) {
    if (!pane_) {
        waitingAddress_ = address;
        return;
    }
    windows_->activate();
    if (!address.empty()) pane_->openLink(address);
}

}  // namespace orv
