#include "qt/elements/OutlineModel.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "foundation/system/LocalizedString.h"
#include "qt/binding/QtText.h"
#include "qt/binding/ShownText.h"
#include "qt/looks/Icons.h"

namespace orv {

namespace {

/// Of rows, as the view counts them.
constexpr std::size_t mostInBranch = std::numeric_limits<int>::max();

/// Without the blanks that make room for what others draw over the text.
QString rowTitle(const OutlineCell& cell) {
    const std::size_t start = std::min(cell.title.find_first_not_of(' '), cell.title.size());
    return ShownLine(std::string_view(cell.title).substr(start));
}

QVariant checkState(const OutlineCell& cell) {
    switch (cell.check) {
        case OutlineCheck::None:
            return {};
        case OutlineCheck::Unchecked:
            return int(Qt::Unchecked);
        case OutlineCheck::Partly:
            return int(Qt::PartiallyChecked);
        case OutlineCheck::Checked:
            return int(Qt::Checked);
    }
    return {};
}

// in the order of the checks; nothing for none
constexpr auto checkTexts = std::to_array<quelm::LocalizedText>({
    {"", ""},
    {"Outline.NotChecked", "not checked"},
    {"Outline.PartlyChecked", "partly checked"},
    {"Outline.Checked", "checked"},
});

/// Name and state, for those who do not see the check box.
QString spokenText(const OutlineCell& cell) {
    QString title = rowTitle(cell);
    if (cell.check == OutlineCheck::None) return title;
    const quelm::LocalizedText& state = checkTexts[static_cast<std::size_t>(cell.check)];
    return ToQt(quelm::FormatLocalizedString(
        "Outline.NameAndState", "%@, %@",
        {FromQt(title), quelm::GetLocalizedString(state.key, state.defaultText)}));
}

}  // namespace

OutlineModel::~OutlineModel() = default;

void OutlineModel::setOutlet(const OutlineView* outlet, const Icons* icons) {
    beginResetModel();
    outlet_ = outlet;
    icons_ = icons;
    branches_.clear();
    branches_ = readAnew();
    structure_ = outlet ? outlet->structure() : 0;
    endResetModel();
}

OutlineDataSource* OutlineModel::source() const {
    const bool isCurrent = outlet_ && outlet_->structure() == structure_;
    return isCurrent ? outlet_->dataSource() : nullptr;
}

void OutlineModel::update() {
    if (!outlet_ || structure_ == outlet_->structure()) return;
    Branches fresh = readAnew();
    if (!showsSame(fresh)) {
        Q_EMIT layoutAboutToBeChanged();
        moveIndexes(fresh);
        branches_.swap(fresh);
        structure_ = outlet_->structure();
        Q_EMIT layoutChanged();
    }
    structure_ = outlet_->structure();
}

/// What was opened stays open as long as it is there.
OutlineModel::Branches OutlineModel::readAnew() const {
    Branches fresh;
    std::vector<Branch*> opened;
    const auto open = [&](const Branch& branch) {
        const auto [place, isNew] = fresh.try_emplace(branch.item);
        if (!isNew) return;
        place->second = std::make_unique<Branch>(branch);
        opened.push_back(place->second.get());
    };
    open({});
    for (std::size_t i = 0; i < opened.size(); ++i) {
        Branch& branch = *opened[i];
        const Branch* before = branchOf(branch.item);
        readRows(branch, std::max(before ? before->rows.size() : 0, block));
        for (std::size_t row = 0; row < branch.rows.size(); ++row) {
            const OutlineItem item = branch.rows[row].item;
            if (branchOf(item)) open({item, &branch, static_cast<int>(row), {}});
        }
    }
    return fresh;
}

void OutlineModel::readRows(Branch& branch, std::size_t most) const {
    const OutlineDataSource* source = outlet_ ? outlet_->dataSource() : nullptr;
    const std::size_t all = source ? source->numberOfChildrenOfItem(branch.item) : 0;
    const std::size_t end = std::min({all, most, mostInBranch});
    branch.rows.reserve(end);
    for (std::size_t row = branch.rows.size(); row < end; ++row) {
        const OutlineItem item = source->childOfItem(row, branch.item);
        branch.rows.push_back({item, source->isItemExpandable(item)});
    }
}

bool OutlineModel::showsSame(const Branches& others) const {
    return std::ranges::all_of(others,
                               [this](const auto& each) {
                                   const Branch* own = branchOf(each.first);
                                   return own && own->rows == each.second->rows;
                               }) &&
           others.size() == branches_.size();
}

/// The indexes that views keep go where their items are in the other branches.
void OutlineModel::moveIndexes(const Branches& others) {
    const QModelIndexList before = persistentIndexList();
    std::unordered_map<OutlineItem, QModelIndex> places;
    for (const QModelIndex& index : before)
        places.emplace(itemAt(index), QModelIndex());
    for (const auto& [item, branch] : others)
        for (std::size_t row = 0; row < branch->rows.size(); ++row) {
            const auto place = places.find(branch->rows[row].item);
            if (place != places.end()) place->second = indexIn(*branch, row);
        }
    QModelIndexList after;
    for (const QModelIndex& index : before)
        after << places[itemAt(index)];
    changePersistentIndexList(before, after);
}

OutlineModel::Branch* OutlineModel::branchOf(OutlineItem item) const {
    const auto found = branches_.find(item);
    return found != branches_.end() ? found->second.get() : nullptr;
}

QModelIndex OutlineModel::indexIn(const Branch& branch, std::size_t row) const {
    return createIndex(static_cast<int>(row), 0, &branch);
}

const OutlineModel::Branch& OutlineModel::branchAround(const QModelIndex& index) {
    return *static_cast<const Branch*>(index.constInternalPointer());
}

OutlineItem OutlineModel::itemAt(const QModelIndex& index) const {
    if (!index.isValid()) return nullptr;
    return branchAround(index).rows[static_cast<std::size_t>(index.row())].item;
}

QModelIndex OutlineModel::indexOfItem(OutlineItem item) {
    const OutlineDataSource* source = this->source();
    if (!source) return {};
    std::vector<OutlineItem> path;
    for (; item; item = source->parentOfItem(item))
        path.push_back(item);
    QModelIndex index;
    for (auto at = path.rbegin(); at != path.rend(); ++at) {
        const std::size_t row = source->indexOfItem(*at);
        fetchUpTo(index, row + 1);
        const Branch* branch = branchOf(itemAt(index));
        if (!branch || row >= branch->rows.size() || branch->rows[row].item != *at) return {};
        index = indexIn(*branch, row);
    }
    return index;
}

OutlineCell OutlineModel::cellAt(const QModelIndex& index) const {
    const OutlineDataSource* source = this->source();
    return source && index.isValid() ? source->cellOfItem(itemAt(index)) : OutlineCell();
}

QModelIndex OutlineModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column != 0) return {};
    return indexIn(*branchOf(itemAt(parent)), static_cast<std::size_t>(row));
}

QModelIndex OutlineModel::parent(const QModelIndex& index) const {
    if (!index.isValid()) return {};
    const Branch& branch = branchAround(index);
    if (!branch.parent) return {};
    return indexIn(*branch.parent, static_cast<std::size_t>(branch.row));
}

int OutlineModel::rowCount(const QModelIndex& parent) const {
    const Branch* branch = branchOf(itemAt(parent));
    return branch ? static_cast<int>(branch->rows.size()) : 0;
}

int OutlineModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

bool OutlineModel::hasChildren(const QModelIndex& parent) const {
    if (!parent.isValid()) return rowCount() > 0;
    return branchAround(parent).rows[static_cast<std::size_t>(parent.row())].isExpandable;
}

bool OutlineModel::canFetchMore(const QModelIndex& parent) const {
    const OutlineDataSource* source = this->source();
    if (!source || !hasChildren(parent)) return false;
    const OutlineItem item = itemAt(parent);
    const Branch* branch = branchOf(item);
    // one without rows is opened too, so that those that come are noticed
    return !branch || (branch->rows.empty() && source->numberOfChildrenOfItem(item) > 0);
}

/// A view lays out all rows anew for every block, so blocks grow with what is there.
bool OutlineModel::fetchNextBlock(const QModelIndex& parent) {
    const auto before = static_cast<std::size_t>(rowCount(parent));
    fetchUpTo(parent, before + std::max(block, before / 4));
    return static_cast<std::size_t>(rowCount(parent)) > before;
}

void OutlineModel::fetchMore(const QModelIndex& parent) {
    fetchUpTo(parent, block);
}

void OutlineModel::fetchUpTo(const QModelIndex& parent, std::size_t rows) {
    const OutlineDataSource* source = this->source();
    if (!source) return;
    Branch& branch = openBranch(parent);
    const std::size_t all = source->numberOfChildrenOfItem(branch.item);
    const std::size_t end = std::min({all, rows, mostInBranch});
    if (end <= branch.rows.size()) return;
    beginInsertRows(parent, rowCount(parent), static_cast<int>(end) - 1);
    readRows(branch, end);
    endInsertRows();
}

OutlineModel::Branch& OutlineModel::openBranch(const QModelIndex& parent) {
    std::unique_ptr<Branch>& branch = branches_[itemAt(parent)];
    if (!branch) {
        // that of the top rows is always there
        branch = std::make_unique<Branch>(
            Branch{itemAt(parent), branchOf(itemAt(parent.parent())), parent.row(), {}});
    }
    return *branch;
}

/// Asked for every row that is laid out, so what stands in it does not count.
Qt::ItemFlags OutlineModel::flags(const QModelIndex& index) const {
    return QAbstractItemModel::flags(index) | Qt::ItemIsUserCheckable;
}

QVariant OutlineModel::data(const QModelIndex& index, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return rowTitle(cellAt(index));
        case Qt::CheckStateRole:
            return checkState(cellAt(index));
        case Qt::DecorationRole:
            return icons_ ? icons_->iconOrTheme(ToQt(cellAt(index).imageName)) : QIcon();
        case Qt::ToolTipRole:
            return PlainToolTip(ShownText(cellAt(index).toolTip));
        case Qt::AccessibleTextRole:
            return spokenText(cellAt(index));
        case Qt::AccessibleDescriptionRole:
            return ShownText(cellAt(index).toolTip);
        case faintRole:
            return cellAt(index).isFaint;
        default:
            return {};
    }
}

QVariant OutlineModel::headerData(int /*section*/, Qt::Orientation /*orientation*/,
                                  int role) const {
    if (role != Qt::DisplayRole) return {};
    return ToQt(quelm::GetLocalizedString("Outline.NameColumn", "Name"));
}

bool OutlineModel::setData(const QModelIndex& index, const QVariant& /*value*/, int role) {
    OutlineDataSource* source = this->source();
    if (role != Qt::CheckStateRole || !source || !index.isValid()) return false;
    source->toggleItem(itemAt(index));
    return true;
}

}  // namespace orv
