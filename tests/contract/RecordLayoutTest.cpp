#include "Golden.h"
#include "TavFields.h"
#include "TavTypeName.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
template<class Field>
FieldLayout layoutOf(const Field &field)
{
    static const typename Field::Record record{};
    const auto offset
        = reinterpret_cast<const char *>(&(record.*Field::member)) - reinterpret_cast<const char *>(&record);
    return {QString::fromStdString(std::string(field.name)), std::size_t(offset), sizeof(typename Field::Type),
            alignof(typename Field::Type)};
}

std::vector<RecordLayout> allRecords()
{
    std::vector<RecordLayout> records;
    TavFields::Records::forEach([&records](auto tag) {
        using Record = typename decltype(tag)::type;
        RecordLayout layout{tavTypeName(typeid(Record)), sizeof(Record), alignof(Record), {}};
        TavFields::forEachField<Record>([&layout](const auto &field) { layout.fields.push_back(layoutOf(field)); });
        records.push_back(layout);
    });
    return records;
}
}

TEST(RecordLayout, IsTheOneThatPagesWereCompiledWith)
{
    EXPECT_EQ(described(allRecords()), golden("records.txt"));
}

TEST(RecordLayout, HasNoGapBetweenTheFieldsOfTheTableThatAlignmentDoesNotExplain)
{
    for (const RecordLayout &record : allRecords()) {
        std::size_t end = 0;
        for (const FieldLayout &field : record.fields) {
            const std::size_t alignment = std::min(field.alignment, record.alignment);
            EXPECT_TRUE(field.offset >= end && field.offset - end < alignment)
                << record.name.toStdString() << ": a field is missing before " << field.name.toStdString();
            end = field.offset + field.size;
        }
        EXPECT_TRUE(record.size >= end && record.size - end < record.alignment)
            << record.name.toStdString() << ": the last field is missing";
    }
}
