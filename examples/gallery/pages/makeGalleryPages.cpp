#include "makeGalleryPages.h"

#include "EitherDialogPage.h"
#include "FileDialogExample.h"
#include "FileDialogPage.h"
#include "FilteringComboPage.h"
#include "HelpersPage.h"
#include "LabelsAndButtonsPage.h"
#include "NativeDialogPage.h"
#include "NumberFieldsPage.h"
#include "PortalPage.h"
#include "SaveFlowPage.h"
#include "TableCopyPage.h"
#include "TableEditorPage.h"

#include "PageCode.h"

#include <utility>

namespace gallery {

namespace {

using Code = std::vector<SourceFunctions>;

} // namespace

std::vector<std::unique_ptr<GalleryPage>> makeGalleryPages()
{
    std::vector<std::unique_ptr<GalleryPage>> pages;
    const auto add = [&pages](std::unique_ptr<GalleryPage> page, const Code& code) {
        page->offerCode(PageCode(code));
        pages.push_back(std::move(page));
    };
    add(std::make_unique<TableEditorPage>(),
        {{"tableDialogs.cpp", {"askForTable", "askWhereToSave"}}, {"RowField.cpp", {"RowField"}}});
    for (const FileDialogExample& example : fileDialogExamples())
        add(std::make_unique<FileDialogPage>(example), {{"FileDialogPage.cpp", {"outcomeOfDialog"}}});
    add(std::make_unique<SaveFlowPage>(), {{"SaveFlowPage.cpp", {"makeHandler", "makeFlow", "save"}}});
    add(std::make_unique<NativeDialogPage>(), {{"NativeDialogPage.cpp", {"runDialog", "addControls"}}});
    add(std::make_unique<PortalPage>(), {{"PortalPage.cpp", {"open", "save"}}});
    add(std::make_unique<EitherDialogPage>(), {{"EitherDialogPage.cpp", {"open", "save", "chooseDirectory", "run"}}});
    add(std::make_unique<NumberFieldsPage>(),
        {{"NumberFieldsPage.cpp", {"connectSettings", "applyRange", "takeStepsOver"}}});
    add(std::make_unique<FilteringComboPage>(), {{"FilteringComboPage.cpp", {"edit", "takeName"}}});
    add(std::make_unique<LabelsAndButtonsPage>(), {{"LabelsAndButtonsPage.cpp", {"makeSplitter", "addButton"}}});
    add(std::make_unique<HelpersPage>(),
        {{"HelpersPage.cpp", {"work", "setConnected", "showMainWindow", "addFontsFrom"}}});
    add(std::make_unique<TableCopyPage>(),
        {{"TableCopyPage.cpp", {"connectWidgets"}}, {"TableView.cpp", {"TableView", "addContextMenu"}}});
    return pages;
}

} // namespace gallery
