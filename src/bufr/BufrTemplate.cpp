#include "BufrTemplate.h"

#include "BufrExpansion.h"
#include "BufrOutput.h"

BufrTemplate* bufr_create_template(const BufrDescValue* descriptors, int count, const BufrTables* tables, int edition) {
    if (tables == nullptr) {
        return nullptr;
    }
    auto* made = new BufrTemplate;
    made->tables = tables;
    made->edition = edition;
    bufr_template_add_DescValue(made, descriptors, count);
    return made;
}

void bufr_free_template(BufrTemplate* bufrTemplate) {
    delete bufrTemplate;
}

void bufr_init_DescValue(BufrDescValue* value) {
    *value = BufrDescValue();
}

void bufr_template_add_DescValue(BufrTemplate* bufrTemplate, const BufrDescValue* values, int count) {
    bufrTemplate->topLevel.insert(bufrTemplate->topLevel.end(), values, values + count);
    bufrTemplate->isFinalized = false;
}

int bufr_finalize_template(BufrTemplate* bufrTemplate) {
    bufrTemplate->isFinalized = false;
    std::vector<bufr_desc> list;
    for (const BufrDescValue& top : bufrTemplate->topLevel) {
        bufr_desc desc;
        if (!bufr_is_descriptor(top.descriptor)) {
            bufr_printf("Error: not a valid descriptor %d\n", top.descriptor);
            return -1;
        }
        if (!bufr_make_desc(top.descriptor, bufrTemplate->tables, desc)) {
            return -1;
        }
        desc.value = top.value;
        list.push_back(desc);
    }
    if (!bufr_check_sequence(list, bufrTemplate->tables) || !bufr_expand_sequence(list, bufrTemplate->tables, true)) {
        bufr_print("Error: Template definition contains error(s)\n");
        return -1;
    }
    bufrTemplate->expanded = std::move(list);
    bufrTemplate->isFinalized = true;
    return 1;
}
