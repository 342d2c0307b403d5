// Where the columns of an order stand in its grid.
#pragma once

struct OrderColumn {
    enum Column {
        RowNumber,
        Code,
        Name,
        Spec,
        Unit,
        Quantity,
        Price,
        Amount,
        Warehouse,
        Delivery,
        Slot,
        Gift,
        Remark,
        Entered,
        ColumnCount
    };
};
