// The places that SET, ALIAS, FUNCTION and their UN- commands work on, each seen as a list of "name=value".
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "expand/lists.h"
#include "platform/registry_environment.h"
#include "text/cstring.h"

class DefinitionStore {
public:
    virtual ~DefinitionStore() = default;
    virtual bool Exists() const = 0;
    // What a listing shows, in the store's own order.
    virtual std::vector<CString> Entries() const = 0;
    // The entry of that name, spelled as the store keeps it; false when there is none. `match` counts for
    // aliases only.
    virtual bool Find(std::u16string_view name, NameMatch match, CString& entry) const = 0;
    // Defines or (empty value) deletes; 0, or a result whose error was reported.
    virtual int Define(CString& entry, std::u16string_view typeSpec) = 0;
};

// An alias or function list.
class ListStore : public DefinitionStore {
public:
    explicit ListStore(VariableStore which) : store(which) {}
    bool Exists() const override { return QueryListExists(store); }
    std::vector<CString> Entries() const override { return ListEntries(store); }
    bool Find(std::u16string_view name, NameMatch match, CString& entry) const override;
    int Define(CString& entry, std::u16string_view typeSpec) override;

private:
    bool HoldsAliases() const;

    VariableStore store;
};

// The variables of the process, array elements included; internal ones are not listed.
class EnvironmentStore : public DefinitionStore {
public:
    bool Exists() const override { return true; }
    std::vector<CString> Entries() const override;
    bool Find(std::u16string_view name, NameMatch match, CString& entry) const override;
    int Define(CString& entry, std::u16string_view typeSpec) override;
};

// The variables that the registry keeps. What is changed is announced to other programs once, at the end.
class RegistryStore : public DefinitionStore {
public:
    explicit RegistryStore(RegistryEnvironment which) : place(which) {}
    ~RegistryStore() override;
    bool Exists() const override { return true; }
    std::vector<CString> Entries() const override { return RegistryVariables(place); }
    bool Find(std::u16string_view name, NameMatch match, CString& entry) const override;
    int Define(CString& entry, std::u16string_view typeSpec) override;

private:
    RegistryEnvironment place;
    bool changed = false;
};

using DefinitionStores = std::vector<std::unique_ptr<DefinitionStore>>;
