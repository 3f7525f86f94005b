#include "ui/qt/dialogs/windows/builtin/ShellItem_p.h"

#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"
#include "ui/qt/dialogs/windows/com/RefCounted_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"

#include <QDir>
#include <QFileInfo>

#include <vector>

namespace zelmar::internal {

namespace {

class ShellItem : public RefCounted<IShellItem>
{
public:
    explicit ShellItem(const QString& path)
        : m_path(path)
    {
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        const QITAB table[] = {{&IID_IShellItem, 0}, {nullptr, 0}};
        return QISearch(static_cast<IShellItem*>(this), table, iid, object);
    }

    HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetParent(IShellItem** parent) override
    {
        if (!parent)
            return E_POINTER;
        *parent = nullptr;
        if (QDir(m_path).isRoot())
            return E_FAIL;
        *parent = makeShellItem(QFileInfo(m_path).path()).detach();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN kind, LPWSTR* name) override
    {
        if (!name)
            return E_POINTER;
        *name = makeCoTaskMemString(kind == SIGDN_NORMALDISPLAY ? QFileInfo(m_path).fileName() : m_path).release();
        return *name ? S_OK : E_OUTOFMEMORY;
    }

    HRESULT STDMETHODCALLTYPE GetAttributes(SFGAOF, SFGAOF*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Compare(IShellItem* other, SICHINTF, int* order) override
    {
        if (!other || !order)
            return E_POINTER;
        *order = m_path.compare(fileSystemPath(other).value_or(QString()));
        return *order == 0 ? S_OK : S_FALSE;
    }

private:
    const QString m_path;
};

class ShellItemArray : public RefCounted<IShellItemArray>
{
public:
    explicit ShellItemArray(const QStringList& paths)
    {
        for (const QString& path : paths)
            m_items.push_back(makeShellItem(path));
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        const QITAB table[] = {{&IID_IShellItemArray, 0}, {nullptr, 0}};
        return QISearch(static_cast<IShellItemArray*>(this), table, iid, object);
    }

    HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPropertyStore(GETPROPERTYSTOREFLAGS, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPropertyDescriptionList(REFPROPERTYKEY, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttributes(SIATTRIBFLAGS, SFGAOF, SFGAOF*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetCount(DWORD* count) override
    {
        if (!count)
            return E_POINTER;
        *count = static_cast<DWORD>(m_items.size());
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetItemAt(DWORD index, IShellItem** item) override
    {
        if (!item)
            return E_POINTER;
        *item = nullptr;
        if (index >= m_items.size())
            return E_FAIL;
        *item = ComPtr<IShellItem>(m_items[index]).detach();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE EnumItems(IEnumShellItems**) override { return E_NOTIMPL; }

private:
    std::vector<ComPtr<IShellItem>> m_items;
};

} // namespace

ComPtr<IShellItem> makeShellItem(const QString& path)
{
    return adopt<IShellItem>(new ShellItem(path));
}

ComPtr<IShellItemArray> makeShellItemArray(const QStringList& paths)
{
    return adopt<IShellItemArray>(new ShellItemArray(paths));
}

} // namespace zelmar::internal
