// Data trees as JSON.
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <new>

#include "data/tree_links.h"
#include "orv/tree_xml.h"

namespace orv {
namespace {

using Encoding = rapidjson::UTF16<wchar_t>;
using Buffer = rapidjson::GenericStringBuffer<Encoding>;

template <class Json>
void putText(Json& json, const wchar_t* key, const CString& value) {
    json.Key(key, static_cast<rapidjson::SizeType>(WideTraits::length(key)));
    json.String(value.GetString(), static_cast<rapidjson::SizeType>(value.GetLength()));
}

template <class Json>
void putArray(Json& json, const wchar_t* key) {
    json.Key(key, static_cast<rapidjson::SizeType>(WideTraits::length(key)));
    json.StartArray();
}

template <class Json>
CString write(const CNode& root) {
    Buffer out;
    Json json(out);
    walkBranch(
        root,
        [&](const CNode& node) {
            json.StartObject();
            putText(json, L"name", node.GetName());
            if (node.isSimpleXML()) putText(json, L"form", L"simple");
            if (node.NrOfLeaves() > 0) {
                putArray(json, L"leaves");
                for (const CLeaf& leaf : leavesOf(node)) {
                    json.StartObject();
                    putText(json, L"name", leaf.GetName());
                    putText(json, L"value", leaf.GetRawData());
                    json.EndObject();
                }
                json.EndArray();
            }
            if (node.NrOfChildren() > 0) putArray(json, L"children");
        },
        [&](const CNode& node) {
            if (node.NrOfChildren() > 0) json.EndArray();
            json.EndObject();
        });
    const std::size_t length = out.GetSize() / sizeof(wchar_t);
    if (length > kLongestText) throw std::bad_alloc();
    return {out.GetString(), static_cast<int>(length)};
}

}  // namespace

CString toJson(const CNode& node, bool indented) {
    return indented && node.GetSizeOfBranch(0) < kLongestText / 4
               ? write<rapidjson::PrettyWriter<Buffer, Encoding, Encoding>>(node)
               : write<rapidjson::Writer<Buffer, Encoding, Encoding>>(node);
}

}  // namespace orv
