// SPDX-License-Identifier: MIT
#include "store/first_entries.hpp"

namespace vkr {

namespace {

constexpr const char* exchanges[] = {
    "Nasdaq",
    "NYSE",
    "NYSE American",
    "NYSE Arca",
    "OTC Markets",
    "Toronto",
    "TSX Venture",
    "London",
    "Xetra",
    "Frankfurt",
    "Euronext Paris",
    "Euronext Amsterdam",
    "Euronext Brussels",
    "Swiss",
    "Milan",
    "Madrid",
    "Vienna",
    "Stockholm",
    "Copenhagen",
    "Helsinki",
    "Oslo",
    "Tokyo",
    "Hong Kong",
    "Shanghai",
    "Shenzhen",
    "Korea",
    "Taiwan",
    "Singapore",
    "India NSE",
    "Bombay",
    "Australia",
    "New Zealand",
    "Johannesburg",
    "São Paulo",
    "Mexico",
    "Tel Aviv",
};

constexpr const char* industries[] = {
    "Advertising & Marketing",
    "Aerospace & Defense",
    "Agriculture",
    "Airlines",
    "Apparel",
    "Auto Manufacturers",
    "Auto Parts",
    "Banks",
    "Beverages",
    "Biotechnology",
    "Broadcasting & Media",
    "Building Materials",
    "Business Services",
    "Chemicals",
    "Coal & Fuels",
    "Communications Equipment",
    "Computers & Peripherals",
    "Construction & Engineering",
    "Consumer Finance",
    "Containers & Packaging",
    "Drugs",
    "Education",
    "Electric Utilities",
    "Electrical Equipment",
    "Electronics",
    "Entertainment",
    "Environmental Services",
    "Financial Services",
    "Food Processing",
    "Footwear",
    "Forest & Paper Products",
    "Gas Utilities",
    "Grocery Stores",
    "Health Care Facilities",
    "Health Care Services",
    "Home Building",
    "Hotels & Lodging",
    "Household Products",
    "Household Durables",
    "Insurance, Life & Health",
    "Insurance, Property & Casualty",
    "Internet Services",
    "Investment Management",
    "Leisure Products",
    "Machinery",
    "Medical Devices",
    "Metals & Mining",
    "Oil & Gas Equipment & Services",
    "Oil & Gas Exploration & Production",
    "Oil & Gas Integrated",
    "Office Equipment",
    "Personal Care",
    "Pipelines",
    "Precious Metals",
    "Publishing",
    "Railroads",
    "Real Estate",
    "Real Estate Investment Trusts",
    "Restaurants",
    "Retail, Apparel",
    "Retail, General",
    "Retail, Online",
    "Retail, Specialty",
    "Scientific Instruments",
    "Semiconductor Equipment",
    "Semiconductors",
    "Shipping",
    "Software",
    "Staffing",
    "Steel",
    "Telecommunication Services",
    "Textiles",
    "Tobacco",
    "Toys & Games",
    "Trucking",
    "Water Utilities",
    "Wholesale Distribution",
};

constexpr const char* sources[] = {
    "S & P", "Value Line",    "Annual report",    "10-K",      "10-Q",
    "20-F",  "Press release", "Company web site", "Newspaper",
};

template <std::size_t count>
void insert(StoreConnection& connection, const char* kind, const char* const (&texts)[count]) {
    for (std::size_t i = 0; i < count; ++i)
        connection.run("INSERT INTO list_entry (kind, position, text) VALUES (?, ?, ?)",
                       {kind, static_cast<qlonglong>(i), QString::fromUtf8(texts[i])});
}

} // namespace

void insertFirstEntries(StoreConnection& connection) {
    insert(connection, "exchange", exchanges);
    insert(connection, "industry", industries);
    insert(connection, "source", sources);
}

} // namespace vkr
