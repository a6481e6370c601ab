#pragma once
// Published samples of directions that R's package "circular" ships (r-cran-circular 0.4-95 on
// Debian 12), printed by
//   Rscript -e 'library(circular); cat(format(as.numeric(DATA)), sep=", ")'
// with DATA the name given below.

#include <vector>

namespace orv::test {

// fisherB3: directions (degrees) taken by 76 turtles after treatment (Fisher's Appendix B3);
// mean direction in the first quadrant.
inline const std::vector<double> kTurtles = {
    8,   9,   13,  13,  14,  18,  22,  27,  30,  34,  38,  38,  40,  44,  45,  47,  48,  48,  48,
    48,  50,  53,  56,  57,  58,  58,  61,  63,  64,  64,  64,  65,  65,  68,  70,  73,  78,  78,
    78,  83,  83,  88,  88,  88,  90,  92,  92,  93,  95,  96,  98,  100, 103, 106, 113, 118, 138,
    153, 153, 155, 204, 215, 223, 226, 237, 238, 243, 244, 250, 251, 257, 268, 285, 319, 343, 350};

// fisherB6$set2: 30 cross-bed azimuths (degrees) of palaeocurrents in the Belford Anticline
// (Fisher's Appendix B6, set 2); mean direction about 248, deep in the third quadrant.
inline const std::vector<double> kFisherB6Set2 = {294, 301, 329, 315, 277, 281, 254, 245, 272, 242,
                                                  177, 257, 177, 229, 250, 166, 232, 245, 224, 186,
                                                  257, 267, 241, 239, 287, 229, 290, 214, 215, 224};

// fisherB13$set11: orientations (degrees) of 37 termite mounds (Fisher's Appendix B13, site 11);
// concentrated (r 0.985), mean direction about 184, just past 180 into the third quadrant.
inline const std::vector<double> kFisherB13Set11 = {
    195.5, 180.5, 181.5, 185.5, 177.5, 175.5, 178.5, 178.5, 176.5, 179.5, 184.5, 176.5, 189.5,
    168.5, 187.5, 190.5, 184.5, 176.5, 186.5, 193.5, 182.5, 216.5, 190.5, 207.5, 181.5, 191.5,
    182.5, 185.5, 166.5, 176.5, 173.5, 176.5, 194.5, 199.5, 182.5, 188.5, 180.5};

// fisherB13$set14: orientations (degrees) of 92 termite mounds (Fisher's Appendix B13, site 14);
// mean direction about 179.4, just short of 180, in the second quadrant.
inline const std::vector<double> kFisherB13Set14 = {
    180.5, 195.5, 191.5, 189.5, 162.5, 181.5, 204.5, 190.5, 182.5, 174.5, 174.5, 186.5, 164.5, 165.5, 190.5, 194.5,
    191.5, 159.5, 177.5, 164.5, 173.5, 167.5, 175.5, 186.5, 180.5, 192.5, 175.5, 186.5, 200.5, 187.5, 179.5, 171.5,
    178.5, 174.5, 155.5, 165.5, 151.5, 183.5, 164.5, 155.5, 173.5, 168.5, 172.5, 181.5, 174.5, 187.5, 172.5, 178.5,
    198.5, 175.5, 191.5, 177.5, 183.5, 185.5, 183.5, 175.5, 178.5, 162.5, 177.5, 182.5, 197.5, 204.5, 154.5, 185.5,
    175.5, 168.5, 175.5, 166.5, 215.5, 185.5, 179.5, 174.5, 200.5, 194.5, 132.5, 185.5, 199.5, 172.5, 178.5, 178.5,
    178.5, 189.5, 176.5, 173.5, 182.5, 184.5, 172.5, 199.5, 177.5, 174.5, 176.5, 181.5};

}  // namespace orv::test
