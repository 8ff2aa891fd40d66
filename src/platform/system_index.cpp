#include "platform/system_index.h"

#include <windows.h>

#include <oleauto.h>

#include "platform/com.h"
#include "platform/com_objects.h"
#include "platform/lazy_library.h"
#include "text/compare.h"

namespace {

constinit LazyLibrary oleaut32(L"oleaut32.dll");
constinit LazyFunction<decltype(CLSIDFromProgID)> classOfName(libraries::ole32, "CLSIDFromProgID", E_FAIL);
constinit LazyFunction<decltype(SysAllocString)> allocateText(oleaut32, "SysAllocString");
constinit LazyFunction<decltype(VariantClear)> clearVariant(oleaut32, "VariantClear", E_FAIL);

constexpr GUID noInterface = {};

class Variant {
public:
    Variant() = default;
    explicit Variant(const CString& text)
    {
        value.vt = VT_BSTR;
        value.bstrVal = allocateText(text.w());
    }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { clearVariant(&value); }

    VARIANT value = {};
};

// A member of an automation object: a method, or a property that is read. `result` may be null.
bool Call(IDispatch* object, const wchar_t* member, WORD kind, VARIANT* argument, VARIANT* result)
{
    DISPID id = 0;
    wchar_t* name = const_cast<wchar_t*>(member);
    if (!object || FAILED(object->GetIDsOfNames(noInterface, &name, 1, LOCALE_USER_DEFAULT, &id)))
        return false;
    DISPPARAMS parameters = {argument, nullptr, argument ? 1u : 0u, 0};
    return SUCCEEDED(
        object->Invoke(id, noInterface, LOCALE_USER_DEFAULT, kind, &parameters, result, nullptr, nullptr));
}

IDispatch* ObjectIn(const Variant& variant)
{
    return variant.value.vt == VT_DISPATCH ? variant.value.pdispVal : nullptr;
}

bool Open(ComPointer<IDispatch>& connection)
{
    CLSID id;
    if (!StartCom() || FAILED(classOfName(L"ADODB.Connection", &id)) ||
        !CreateComObject(id, __uuidof(IDispatch), reinterpret_cast<void**>(connection.Receive())))
        return false;
    Variant provider(CString(u"Provider=Search.CollatorDSO;Extended Properties='Application=Windows';"));
    return Call(connection.Get(), L"Open", DISPATCH_METHOD, &provider.value, nullptr);
}

bool IsTrue(IDispatch* object, const wchar_t* property)
{
    Variant value;
    return Call(object, property, DISPATCH_PROPERTYGET, nullptr, &value.value) && value.value.vt == VT_BOOL &&
           value.value.boolVal != VARIANT_FALSE;
}

// The first column of the present row.
bool ReadRow(IDispatch* rows, CString& text)
{
    Variant fields;
    if (!Call(rows, L"Fields", DISPATCH_PROPERTYGET, nullptr, &fields.value))
        return false;
    Variant number;
    number.value.vt = VT_I4;
    Variant field;
    if (!Call(ObjectIn(fields), L"Item", DISPATCH_PROPERTYGET, &number.value, &field.value))
        return false;
    Variant value;
    if (!Call(ObjectIn(field), L"Value", DISPATCH_PROPERTYGET, nullptr, &value.value) ||
        value.value.vt != VT_BSTR || !value.value.bstrVal)
        return false;
    text = CString(reinterpret_cast<const char16_t*>(value.value.bstrVal));
    return true;
}

CString Quoted(std::u16string_view text)
{
    CString quoted;
    for (const char16_t unit : text) {
        quoted.Append(unit);
        if (unit == u'\'')
            quoted.Append(unit);
    }
    return quoted;
}

// A pattern of the query language; what it takes for signs is put into sets.
CString LikePattern(std::u16string_view name)
{
    CString pattern;
    for (const char16_t unit : name) {
        if (unit == u'*')
            pattern.Append(u'%');
        else if (unit == u'?')
            pattern.Append(u'_');
        else if (unit == u'%' || unit == u'_' || unit == u'[')
            pattern.Append(u'[').Append(unit).Append(u']');
        else
            pattern.Append(unit);
    }
    return Quoted(pattern);
}

CString Words(std::u16string_view text)
{
    CString words;
    for (const char16_t unit : text)
        words.Append(IsLetterOrDigit(unit) ? unit : u' ');
    return words.Trim();
}

CString SystemIndexQuery(const IndexQuery& query)
{
    CString sql = u"SELECT System.ItemPathDisplay FROM SystemIndex WHERE SCOPE='file:";
    sql.Append(Quoted(query.directory)).Append(u'\'');
    if (!query.name.empty() && query.name != u"*")
        sql.Append(u" AND System.FileName LIKE '").Append(LikePattern(query.name)).Append(u'\'');
    if (const CString words = Words(query.text); !words.empty())
        sql.Append(u" AND CONTAINS('\"").Append(words).Append(u"\"')");
    return sql;
}

} // namespace

bool AskSystemIndex(const IndexQuery& query, std::vector<CString>& names, void (*poll)())
{
    ComPointer<IDispatch> connection;
    if (!Open(connection))
        return false;
    Variant text(SystemIndexQuery(query));
    Variant rows;
    if (!Call(connection.Get(), L"Execute", DISPATCH_METHOD, &text.value, &rows.value) || !ObjectIn(rows))
        return false;
    while (!IsTrue(ObjectIn(rows), L"EOF")) {
        poll();
        if (CString name; ReadRow(ObjectIn(rows), name))
            names.push_back(name);
        if (!Call(ObjectIn(rows), L"MoveNext", DISPATCH_METHOD, nullptr, nullptr))
            break;
    }
    Call(connection.Get(), L"Close", DISPATCH_METHOD, nullptr, nullptr);
    return !names.empty();
}
