// orvtool record: one-line field records.
#include "commands.h"
#include "orv/records.h"
#include "orv/string_utilities.h"

namespace orvtool {

namespace {

struct RecordWords {
    std::string record;
    std::string separator = ":";
    std::string value;
    long field = 1;
};

void addRecord(CLI::App& command, RecordWords& words) {
    command.add_option("RECORD", words.record, "The record")->required();
    command.add_option("-s,--separator", words.separator, "One or more characters between the fields")
        ->capture_default_str();
}

void addField(CLI::App& command, RecordWords& words) {
    command.add_option("FIELD", words.field, "Number of the field, from 1")
        ->required()
        ->check(CLI::Range(1L, 1000000L));
}

// Reads a record field by field, decoded; a record ends at its first line break.
void split(const RecordWords& words) {
    const CString record = wide(words.record);
    const CString separator = wide(words.separator);
    COrvSubStr reader;
    bool more = separator.GetLength() == 1 ? reader.GetInit(record, separator.GetAt(0))
                                           : reader.GetInit(record, separator.GetString());
    const int end = record.FindOneOf(L"\r\n");
    if (end >= 0) throw Failure{"record: line break at character " + std::to_string(end + 1)};
    CString field;
    while (more) {
        more = reader.Get(field);
        print(utf8(field) + "\n");
    }
}

}  // namespace

void addRecordCommands(CLI::App& app, Outcome&) {
    CLI::App* record = app.add_subcommand("record", "One-line field records");
    record->require_subcommand(1);
    const auto words = std::make_shared<RecordWords>();

    CLI::App* get = record->add_subcommand("get", "Print one field, decoded");
    addRecord(*get, *words);
    addField(*get, *words);
    get->callback([words] {
        const CString separator = wide(words->separator);
        print(utf8(orvStrUtil::GetSubStr(wide(words->record), words->field, separator.GetString())) + "\n");
    });

    CLI::App* set = record->add_subcommand("set", "Print the record with one field replaced");
    addRecord(*set, *words);
    addField(*set, *words);
    set->add_option("VALUE", words->value, "The new value")->required();
    set->callback([words] {
        CString changed = wide(words->record);
        const CString separator = wide(words->separator);
        orvStrUtil::SetSubStr(changed, words->field, separator.GetString(), wide(words->value));
        print(utf8(changed) + "\n");
    });

    CLI::App* fields = record->add_subcommand("split", "Print every field, decoded, one a line");
    addRecord(*fields, *words);
    fields->callback([words] { split(*words); });
}

}  // namespace orvtool
