#include "makeGalleryPages.h"

#include "EitherDialogPage.h"
#include "FileDialogExample.h"
#include "FileDialogPage.h"
#include "FilteringComboPage.h"
#include "HelpersPage.h"
#include "LabelsAndButtonsPage.h"
#include "NativeDialogPage.h"
#include "NumberFieldsPage.h"
#include "SaveFlowPage.h"
#include "TableCopyPage.h"
#include "TableEditorPage.h"

namespace gallery {

std::vector<std::unique_ptr<GalleryPage>> makeGalleryPages()
{
    std::vector<std::unique_ptr<GalleryPage>> pages;
    pages.push_back(std::make_unique<TableEditorPage>());
    for (const FileDialogExample& example : fileDialogExamples())
        pages.push_back(std::make_unique<FileDialogPage>(example));
    pages.push_back(std::make_unique<SaveFlowPage>());
    pages.push_back(std::make_unique<NativeDialogPage>());
    pages.push_back(std::make_unique<EitherDialogPage>());
    pages.push_back(std::make_unique<NumberFieldsPage>());
    pages.push_back(std::make_unique<FilteringComboPage>());
    pages.push_back(std::make_unique<LabelsAndButtonsPage>());
    pages.push_back(std::make_unique<HelpersPage>());
    pages.push_back(std::make_unique<TableCopyPage>());
    return pages;
}

} // namespace gallery
