#include "qt/SampleOutlets.h"

namespace test_support {

namespace {

using orv::OutlineCheck;

orv::OutlineCell folderCell(const std::string& title, OutlineCheck check,
                            const std::string& image = "folder") {
    return {"        " + title, image, {}, check};
}

}  // namespace

void SampleOutlets::fillTree() {
    using enum OutlineCheck;
    auto& disk = tree.add(folderCell("System", Partly, "drive"));
    auto& home = tree.add(folderCell("anna", Partly, "folder-home"), &disk);
    auto& documents =
        tree.add(folderCell("Documents  (12.4 GB)", Checked, "folder-documents"), &home);
    tree.add(folderCell("Desktop  (310.2 MB)", Checked, "folder-desktop"), &home);
    tree.add(folderCell("Downloads", Unchecked), &home).isExpandable = true;
    auto& archive =
        tree.add(folderCell("Archive (Folder is missing)", Checked, "folder-missing"), &home);
    archive.cell.isFaint = true;
    auto& pictures = tree.add(folderCell("Pictures", Partly), &home);
    tree.add(folderCell("Private", Unchecked, "folder-locked"), &home).cell.toolTip =
        "You may not read this folder.";
    tree.add(folderCell("Videos (--- KB)", Checked), &home).isExpandable = true;
    for (const char* const name :
         {"Contracts  (1.1 GB)", "Invoices 2019–2026  (840.0 MB)",
          "Letters & notes <old> from the years in which we still kept everything on paper, "
          "scanned one by one  (310.2 MB)"})
        tree.add(folderCell(name, Checked), &documents).isExpandable = true;
    tree.add(folderCell("2024", Unchecked), &pictures).isExpandable = true;
    tree.add(folderCell("2025  (6.3 GB)", Checked), &pictures).isExpandable = true;
    tree.add(folderCell("Photo catalogue", Unchecked, "package"), &pictures);
    tree.add({"             tmp", "folder", {}}, &disk);
    auto& camera = tree.add(folderCell("CAMERA", Unchecked, "drive"));
    camera.isExpandable = true;
    for (auto* node : {&disk, &home, &documents, &pictures})
        node->shouldExpand = true;
}

void SampleOutlets::fillSharing() {
    sharing._folderTree.setDataSource(&tree);
    sharing._notice.setHidden(true);
    sharing._onlyTheseButton.setOn(true);
    for (orv::CheckBox* box : {&sharing._documentsButton, &sharing._imagesButton})
        box->setOn(true);
    sharing._excludeInfo.setStringValue("3 active exclude filters");
    sharing._leftOutInfo.setStringValue(
        "Hidden files, links and what cannot be read are never counted.");
    const orv::StorageFigures figures = SampleFigures();
    sharing._pieChartView.setModel(figures);
    orv::SummaryPanel panel;
    panel.setFigures(figures);
    sharing._summaryPanelView.setModel(panel);
    sharing._summaryLabel.setStringValue(
        "This computer 38.0 GB, of which 31.5 GB are stored already. 36.0 GB stay free.");
    sharing._spinner.startAnimation();
    sharing._progressText.setStringValue("Computing… 128,400 files in 9,210 folders so far");
    sharing._okButton.setEnabled(false);
}

void SampleOutlets::fillExclude() {
    orv::ExcludeOutlets& exclude = sharing.exclude;
    exclude._filterField.setStringValue("*.tmp");
    exclude._previewInfo.setStringValue("Leaves out 214 files (1.2 GB) of what is chosen now:");
    preview.rows = {
        {{"name", "render-0001.tmp"}, {"size", "812.4 MB"}, {"folder", "/home/anna/Videos/cut"}},
        {{"name", "draft.tmp"}, {"size", "12.0 KB"}, {"folder", "/home/anna/Documents/Contracts"}},
        {{"name", "a.tmp"}, {"size", "1.0 KB"}, {"folder", "/home/anna/Documents/Invoices"}}};
    exclude._previewTable.setDataSource(&preview);
    patterns.rows = {{{"filter", "*.iso"}}, {{"filter", "node_modules"}}};
    exclude._excludeFiltersTable.setDataSource(&patterns);
    exclude._excludeFiltersTable.selectRows({1});
    excludedFiles.rows = {{{"path", "/home/anna/Documents/Contracts/scan of everything.pdf"}}};
    exclude._excludedFilesTable.setDataSource(&excludedFiles);
    exclude._removeFileButton.setEnabled(false);
    sharing.leftOut._leftOutTitle.setStringValue("Not counted in “Documents”: 4 entries");
    leftOut.rows = {{{"name", ".cache"}, {"reason", "Hidden"}},
                    {{"name", "Old work"}, {"reason", "A link to /media/anna/OLD/work"}},
                    {{"name", "Private"}, {"reason", "You may not read this folder"}},
                    {{"name", "draft.tmp"}, {"reason", "Excluded by the pattern *.tmp"}}};
    sharing.leftOut._leftOutTable.setDataSource(&leftOut);
}

}  // namespace test_support
