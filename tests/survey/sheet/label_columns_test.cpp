#include "survey/sheet/label_columns.h"

#include <gmock/gmock.h>

using survey::GroundPiece;
using survey::GroundPoint;
using survey::labelColumns;
using testing::ElementsAre;

TEST(LabelColumns, AreTheEndsTheMiddleAndTheDeepestBendsAsFarAsThereIsRoom)
{
    const GroundPiece ground{{-10, 5}, {-9.8, 9}, {-6, 5}, {-3, 5}, {1, 5}, {4, 6}, {4.3, 8}, {10, 5}};
    EXPECT_THAT(labelColumns(ground, 0.5, false),
                ElementsAre(GroundPoint{-10, 5}, GroundPoint{-6, 5}, GroundPoint{0, 5}, GroundPoint{1, 5},
                            GroundPoint{4.3, 8}, GroundPoint{10, 5}));
    EXPECT_THAT(labelColumns(ground, 0.5, true), testing::Contains(GroundPoint{-3, 5})) << "measured, without a bend";
    EXPECT_THAT(labelColumns(ground, 8.0, true),
                ElementsAre(GroundPoint{-10, 5}, GroundPoint{0, 5}, GroundPoint{10, 5}));
    EXPECT_THAT(labelColumns({{2, 5}, {2.1, 7}}, 0.5, true), ElementsAre(GroundPoint{2, 5}));
}
