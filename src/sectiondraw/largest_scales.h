#pragma once

struct DatabaseCS;

/// Stores the scales and rotation of the row with the largest X scale above 1 as the symbol scale (of the symbol rows)
/// and as the line scale (of the survey points on cross-sections); 1, 1 and 0 where no row is larger.
void StoreLargestScales(DatabaseCS& database);

/// Stores the scales 1 and 1 and the rotation 0.
void StorePlainScales(DatabaseCS& database);
