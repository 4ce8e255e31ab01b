#pragma once

#include <QAbstractItemModel>
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

#include "widgets/OutlineView.h"

namespace orv {

class Icons;

/// The rows of an outlet, read from its data source. It keeps which rows it shows itself, so that
/// one that the data source has dropped is not asked about: between such a change and the next
/// `update`, the data source is not asked at all. What stands in a row is asked when it is drawn.
/// The rows of a folder are taken in blocks, as they are needed.
class OutlineModel final : public QAbstractItemModel {
    Q_OBJECT

 public:
    static constexpr std::size_t block = 2000;
    /// A bool: the row is shown fainter than others.
    static constexpr int faintRole = Qt::UserRole;

    explicit OutlineModel(QObject* parent) : QAbstractItemModel(parent) {}
    ~OutlineModel() override;

    /// Both outlive it or are replaced by null.
    void setOutlet(const OutlineView* outlet, const Icons* icons);
    /// Takes over rows that have come, gone or moved; nothing when there are none.
    void update();
    /// Draws the row, which has changed, anew.
    void cellDidChange(const QModelIndex& index) { Q_EMIT dataChanged(index, index); }

    /// Takes more rows of a folder that is open, if there are any.
    bool fetchNextBlock(const QModelIndex& parent);

    /// Null for no row.
    [[nodiscard]] OutlineItem itemAt(const QModelIndex& index) const;
    /// Takes as many rows as lie before it; invalid for null and for what is not in the outline.
    [[nodiscard]] QModelIndex indexOfItem(OutlineItem item);
    /// Null while the data source is not to be asked.
    [[nodiscard]] OutlineDataSource* source() const;
    /// Empty while the data source is not to be asked.
    [[nodiscard]] OutlineCell cellAt(const QModelIndex& index) const;

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    /// The first block of a folder; views ask for the whole of it as soon as it is opened.
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Said, not shown.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    /// The check box asks the data source to toggle the row; what it shows is the answer.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
    struct Row {
        OutlineItem item;
        bool isExpandable;
        bool operator==(const Row&) const = default;
    };
    /// The rows below one that was opened, or the top rows. An index points at the branch that its
    /// row is in.
    struct Branch {
        OutlineItem item = nullptr;
        /// Null of the top rows.
        Branch* parent = nullptr;
        /// Its place in the parent.
        int row = 0;
        std::vector<Row> rows;
    };
    /// By their items; the top rows, which are always there, by null.
    using Branches = std::unordered_map<OutlineItem, std::unique_ptr<Branch>>;

    [[nodiscard]] static const Branch& branchAround(const QModelIndex& index);
    /// Null for an item that was not opened.
    [[nodiscard]] Branch* branchOf(OutlineItem item) const;
    [[nodiscard]] Branch& openBranch(const QModelIndex& parent);
    [[nodiscard]] QModelIndex indexIn(const Branch& branch, std::size_t row) const;
    void fetchUpTo(const QModelIndex& parent, std::size_t rows);
    /// Reads rows that it has not yet, until it has so many.
    void readRows(Branch& branch, std::size_t most) const;
    [[nodiscard]] Branches readAnew() const;
    [[nodiscard]] bool showsSame(const Branches& others) const;
    void moveIndexes(const Branches& others);

    const OutlineView* outlet_ = nullptr;
    const Icons* icons_ = nullptr;
    /// Of the outlet, that the branches show.
    std::size_t structure_ = 0;
    Branches branches_;
};

}  // namespace orv
