#pragma once

#include "widgets/ModelView.h"
#include "widgets/Outlets.h"
#include "widgets/OutlineView.h"
#include "widgets/SummaryPanel.h"
#include "widgets/TableView.h"

namespace orv {

/// The sheet of what is excluded by name or one by one.
struct ExcludeOutlets {
    DialogWindow _excludeWindow;
    /// The pattern that is typed.
    TextField _filterField;
    Button _addFilterButton;
    /// What the typed pattern would leave out, or nothing is typed: hidden.
    TextField _previewInfo;
    /// The first files that it would leave out: columns "name", "size" and "folder". Hidden
    /// together with the line.
    TableView _previewTable;
    /// Column "filter".
    TableView _excludeFiltersTable;
    Button _removeFilterButton;
    /// Column "path".
    TableView _excludedFilesTable;
    Button _addFileButton;
    Button _removeFileButton;
    Button _okButton;
};

/// Why folders and files are not counted.
struct LeftOutOutlets {
    DialogWindow _leftOutWindow;
    /// Of which folder.
    TextField _leftOutTitle;
    /// Columns "name" and "reason".
    TableView _leftOutTable;
    ProgressIndicator _indicator;
    Button _closeButton;
};

/// What the window shows in which the person chooses what to back up.
struct SharingOutlets {
    DialogWindow _sharingWindow;
    OutlineView _folderTree;
    /// What the tree waits for or could not read; hidden when it is nothing.
    TextField _notice;

    // which files
    CheckBox _allFilesButton;
    CheckBox _onlyTheseButton;
    CheckBox _documentsButton;
    CheckBox _financialButton;
    CheckBox _imagesButton;
    CheckBox _archivesButton;
    CheckBox _databasesButton;
    CheckBox _musicButton;
    CheckBox _videoButton;
    Button _excludeButton;
    /// "3 active exclude filters"; empty without any.
    TextField _excludeInfo;

    /// What is never counted: hidden files and links.
    TextField _leftOutInfo;
    /// Why something in the selected folder is not counted.
    Button _leftOutButton;

    ModelView<StorageFigures> _pieChartView;
    ModelView<SummaryPanel> _summaryPanelView;
    /// Both in words.
    TextField _summaryLabel;
    ProgressIndicator _spinner;
    /// How far the computation is; hidden while none runs.
    TextField _progressText;

    Button _okButton;
    Button _cancelButton;

    ExcludeOutlets exclude;
    LeftOutOutlets leftOut;
};

}  // namespace orv
