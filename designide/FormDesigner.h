#pragma once
// TFormDesigner: a designer without a window over one form's components,
// read from a form file. The command line and the tests design forms with
// it; the host's own designer offers editors the same IDesigner.

#include "designide/DesignIntf.h"
#include "rtl/FormText.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class TFormDesigner : public IDesigner {
public:
    // Designs root, which it owns from now on.
    explicit TFormDesigner(std::unique_ptr<TComponent> root, const AnsiString& fileName = {},
                           TFormFormat format = TFormFormat::Text, const TFormTextOptions& options = {});
    ~TFormDesigner() override;
    TFormDesigner(const TFormDesigner&) = delete;
    TFormDesigner& operator=(const TFormDesigner&) = delete;

    // Reads a form in any of its formats; errors name the file (and the
    // line, for text).
    static std::unique_ptr<TFormDesigner> LoadFromFile(const AnsiString& fileName);
    // source names the bytes in error messages.
    static std::unique_ptr<TFormDesigner> LoadFromBytes(std::string_view bytes, const AnsiString& source);

    // IDesigner
    void Modified() override;
    TComponent* GetRoot() const override { return FRoot.get(); }
    TComponent* GetComponent(const AnsiString& name) const override;
    void GetComponentNames(const TTypeInfo* typeData, const TGetStrProc& proc) const override;
    AnsiString GetObjectName(TPersistent* obj) const override;
    TDesignerSelections GetSelections() const override { return FSelections; }
    void SetSelections(const TDesignerSelections& selections) override;
    bool MethodExists(const AnsiString& name) const override;
    AnsiString CreateMethod(const AnsiString& name, const TTypeInfo* typeData) override;
    void GetMethods(const TTypeInfo* typeData, const TGetStrProc& proc) const override;
    AnsiString UniqueName(const AnsiString& baseName) const override;
    TComponent* CreateComponent(TMetaClass* cls, TComponent* parent) override;

    // How many times the form was marked modified since loading or saving.
    int ModifiedCount() const { return FModifiedCount; }
    bool IsModified() const { return FModifiedCount > 0; }
    void ClearModified() { FModifiedCount = 0; }
    // Called on every Modified(), after counting.
    std::function<void()> OnModified;

    const AnsiString& FileName() const { return FFileName; }
    // A binary or resource form counts as binary.
    TStreamOriginalFormat OriginalFormat() const;
    TFormFormat StoredFormat() const { return FFormat; }
    const TFormTextOptions& TextOptions() const { return FOptions; }

    // The form as it stands now, as text, and in the format it was stored
    // in (text, a bare binary stream or a compiled resource).
    std::string FormText() const;
    std::string FormBytes() const;
    // Writes FormBytes to the file it was read from (or fileName), keeping
    // the previous file as Name.~dfm; clears the modified count.
    void Save(const AnsiString& fileName = {});

private:
    void CollectMethods(TComponent* component);

    std::unique_ptr<TComponent> FRoot;
    AnsiString FFileName;
    TFormFormat FFormat;
    TFormTextOptions FOptions;
    int FModifiedCount = 0;
    TDesignerSelections FSelections;
    std::vector<std::pair<AnsiString, const TTypeInfo*>> FMethods;   // name, event type
};

// The backup a form save keeps: the file name with ".~dfm".
AnsiString FormBackupName(const AnsiString& formFileName);
