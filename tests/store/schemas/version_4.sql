-- SPDX-License-Identifier: MIT
-- A file of schema version 4. What is in it is told in companies.txt.
PRAGMA journal_mode = WAL;
PRAGMA application_id = 1447776835;
PRAGMA user_version = 4;
BEGIN;
CREATE TABLE company (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  revision INTEGER NOT NULL,
  saved_by TEXT NOT NULL,
  saved_at TEXT NOT NULL,
  "Exchange" TEXT NOT NULL DEFAULT '',
  "Industry" TEXT NOT NULL DEFAULT '',
  "Source" TEXT NOT NULL DEFAULT '',
  "CurrentPrice" REAL NOT NULL DEFAULT 0,
  "CommDiv" REAL NOT NULL DEFAULT 0,
  "LastFY" INTEGER NOT NULL DEFAULT 0,
  "High52W" REAL NOT NULL DEFAULT 0,
  "Low52W" REAL NOT NULL DEFAULT 0,
  "CommShares" REAL NOT NULL DEFAULT 0,
  "DilutedShares" REAL NOT NULL DEFAULT 0,
  "TotalDebt" REAL NOT NULL DEFAULT 0,
  "Last4QEPS" REAL NOT NULL DEFAULT 0,
  "TaxRate" REAL NOT NULL DEFAULT 0,
  "PrefDiv" REAL NOT NULL DEFAULT 0,
  "TotalCap" REAL NOT NULL DEFAULT 0,
  "InsiderHolding" REAL NOT NULL DEFAULT 0,
  "Institutional" REAL NOT NULL DEFAULT 0,
  "Name" TEXT NOT NULL DEFAULT '',
  "Symbol" TEXT NOT NULL DEFAULT '',
  "DateOfSource" TEXT DEFAULT NULL,
  "PriceUpdatedDate" TEXT DEFAULT NULL,
  "PrefShares" REAL NOT NULL DEFAULT 0,
  "LastQDate" TEXT DEFAULT NULL,
  "LastFYDate" TEXT DEFAULT NULL,
  "ORBEPSProj" REAL NOT NULL DEFAULT 0,
  "Address1" TEXT NOT NULL DEFAULT '',
  "Address2" TEXT NOT NULL DEFAULT '',
  "City" TEXT NOT NULL DEFAULT '',
  "State" TEXT NOT NULL DEFAULT '',
  "Zip" TEXT NOT NULL DEFAULT '',
  "Country" TEXT NOT NULL DEFAULT '',
  "Internet" TEXT NOT NULL DEFAULT '',
  "Tel" TEXT NOT NULL DEFAULT '',
  "ContactPerson" TEXT NOT NULL DEFAULT '',
  "VLTimeliness" TEXT NOT NULL DEFAULT '',
  "VLSafety" TEXT NOT NULL DEFAULT '',
  "CommDivAlternate" REAL NOT NULL DEFAULT 0,
  "LastQDateForGrid" TEXT DEFAULT NULL,
  "LastUpdate" TEXT DEFAULT NULL,
  "Notes" TEXT NOT NULL DEFAULT '',
  "intUnit" INTEGER NOT NULL DEFAULT 0,
  "intLeadPeriod" INTEGER NOT NULL DEFAULT 0,
  "strCurSymbol" TEXT NOT NULL DEFAULT '',
  "blnBookVal" INTEGER NOT NULL DEFAULT 0,
  "blnTaxRate" INTEGER NOT NULL DEFAULT 0,
  "blnLockBasicInfo" INTEGER NOT NULL DEFAULT 0,
  figures TEXT NOT NULL DEFAULT '') STRICT;
INSERT INTO company VALUES
(1, 7, 'anna@desk', '2024-05-06T07:08:09Z', '', '', '', 0.1, 0.0, 2023, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 'Old & Sons', 'OLD', NULL, NULL, 0.0, '2024-03-31', '2023-12-31', 0.0, '', '', '', '', '', '', '', '', '', '', '', 0.0, NULL, NULL, 'kept from version 1', 6, 2, '$', 0, 1, 0, 'QRevenueSeries:1 YEPSSeries:2'),
(4, 1, 'anna@desk', '2024-05-07T07:08:09Z', 'Exchange of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'Industry of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'Source of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 4000.7333333333336, 5000.833333333333, 2021, 864197523086.4062, 0.000125, -9001.233333333334, 10001.333333333334, 11001.433333333334, -12001.533333333335, 13001.633333333333, 1728395046172.8125, -6.666666666666667e-05, 16001.933333333334, 17002.033333333333, 'Second', 'Symbol of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', '2010-09-21', '2011-10-22', 4.545454545454546e-05, '2013-12-24', '2014-01-25', 25002.833333333332, 'Address1 of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'Address2 of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'City of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'State of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'Zip of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'Country of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'Internet of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'Tel of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'ContactPerson of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'VLTimeliness of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 'VLSafety of 1998 – “Ärö & Co.”, ''x'', 100 %, 漢 😀 é', 37004.03333333333, '2028-03-11', '2029-04-12', replace('two lines:\nthe second, 100 %','\n',char(10)), 9, -1, '€', 1, 0, 1, 'QEPSSeries:3 QNetIncSeries:3 QPTISeries:3 QRevenueSeries:3 QTaxRateSeries:3 YBookValSeries:3 YCSOSeries:3 YCommEqSeries:3 YDividendSeries:3 YEPSSeries:3 YHighSeries:3 YLowSeries:3 YNetIncSeries:3 YPTISeries:3 YRevenueSeries:3 YTaxRateSeries:3');
CREATE TABLE series (
  company_id INTEGER NOT NULL REFERENCES company (id) ON DELETE CASCADE,
  series TEXT NOT NULL,
  element INTEGER NOT NULL,
  value REAL NOT NULL,
  PRIMARY KEY (company_id, series, element)) STRICT, WITHOUT ROWID;
INSERT INTO series VALUES
(1, 'QRevenueSeries', 34, 1234.5678),(1, 'YEPSSeries', 1, 1.25),(1, 'YEPSSeries', 10, -0.3),
(4, 'QEPSSeries', 0, 48.1),(4, 'QEPSSeries', 3, -48.142857142857146),(4, 'QEPSSeries', 34, 4800000.7),
(4, 'QNetIncSeries', 0, 45.1),(4, 'QNetIncSeries', 3, -45.142857142857146),
(4, 'QNetIncSeries', 34, 4500000.7),(4, 'QPTISeries', 0, 41.1),(4, 'QPTISeries', 3, -41.142857142857146),
(4, 'QPTISeries', 34, 4100000.7),(4, 'QRevenueSeries', 0, 46.1),(4, 'QRevenueSeries', 3, -46.142857142857146),
(4, 'QRevenueSeries', 34, 4600000.7),(4, 'QTaxRateSeries', 0, 47.1),
(4, 'QTaxRateSeries', 3, -47.142857142857146),(4, 'QTaxRateSeries', 34, 4700000.7),
(4, 'YBookValSeries', 0, 54.1),(4, 'YBookValSeries', 3, -54.142857142857146),
(4, 'YBookValSeries', 10, 5400000.7),(4, 'YCSOSeries', 0, 42.1),(4, 'YCSOSeries', 3, -42.142857142857146),
(4, 'YCSOSeries', 10, 4200000.7),(4, 'YCommEqSeries', 0, 44.1),(4, 'YCommEqSeries', 3, -44.142857142857146),
(4, 'YCommEqSeries', 10, 4400000.7),(4, 'YDividendSeries', 0, 50.1),
(4, 'YDividendSeries', 3, -50.142857142857146),(4, 'YDividendSeries', 10, 5000000.7),
(4, 'YEPSSeries', 0, 56.1),(4, 'YEPSSeries', 3, -56.142857142857146),(4, 'YEPSSeries', 10, 5600000.7),
(4, 'YHighSeries', 0, 52.1),(4, 'YHighSeries', 3, -52.142857142857146),(4, 'YHighSeries', 10, 5200000.7),
(4, 'YLowSeries', 0, 55.1),(4, 'YLowSeries', 3, -55.142857142857146),(4, 'YLowSeries', 10, 5500000.7),
(4, 'YNetIncSeries', 0, 53.1),(4, 'YNetIncSeries', 3, -53.142857142857146),
(4, 'YNetIncSeries', 10, 5300000.7),(4, 'YPTISeries', 0, 49.1),(4, 'YPTISeries', 3, -49.142857142857146),
(4, 'YPTISeries', 10, 4900000.7),(4, 'YRevenueSeries', 0, 51.1),(4, 'YRevenueSeries', 3, -51.142857142857146),
(4, 'YRevenueSeries', 10, 5100000.7),(4, 'YTaxRateSeries', 0, 43.1),
(4, 'YTaxRateSeries', 3, -43.142857142857146),(4, 'YTaxRateSeries', 10, 4300000.7);
CREATE TABLE list_entry (
  kind TEXT NOT NULL,
  position INTEGER NOT NULL,
  text TEXT NOT NULL,
  PRIMARY KEY (kind, text)) STRICT, WITHOUT ROWID;
INSERT INTO list_entry VALUES
('exchange', 30, 'Australia'),('exchange', 29, 'Bombay'),('exchange', 18, 'Copenhagen'),
('exchange', 11, 'Euronext Amsterdam'),('exchange', 12, 'Euronext Brussels'),
('exchange', 10, 'Euronext Paris'),('exchange', 9, 'Frankfurt'),('exchange', 19, 'Helsinki'),
('exchange', 22, 'Hong Kong'),('exchange', 28, 'India NSE'),('exchange', 32, 'Johannesburg'),
('exchange', 25, 'Korea'),('exchange', 7, 'London'),('exchange', 15, 'Madrid'),('exchange', 34, 'Mexico'),
('exchange', 14, 'Milan'),('exchange', 1, 'NYSE'),('exchange', 2, 'NYSE American'),
('exchange', 3, 'NYSE Arca'),('exchange', 0, 'Nasdaq'),('exchange', 31, 'New Zealand'),
('exchange', 4, 'OTC Markets'),('exchange', 20, 'Oslo'),('exchange', 23, 'Shanghai'),
('exchange', 24, 'Shenzhen'),('exchange', 27, 'Singapore'),('exchange', 17, 'Stockholm'),
('exchange', 13, 'Swiss'),('exchange', 33, 'São Paulo'),('exchange', 6, 'TSX Venture'),
('exchange', 26, 'Taiwan'),('exchange', 35, 'Tel Aviv'),('exchange', 21, 'Tokyo'),('exchange', 5, 'Toronto'),
('exchange', 8, 'Xetra'),('industry', 0, 'Advertising & Marketing'),('industry', 1, 'Aerospace & Defense'),
('industry', 2, 'Agriculture'),('industry', 3, 'Airlines'),('industry', 4, 'Apparel'),
('industry', 5, 'Auto Manufacturers'),('industry', 6, 'Auto Parts'),('industry', 7, 'Banks'),
('industry', 8, 'Beverages'),('industry', 9, 'Biotechnology'),('industry', 10, 'Broadcasting & Media'),
('industry', 11, 'Building Materials'),('industry', 12, 'Business Services'),('industry', 13, 'Chemicals'),
('industry', 14, 'Coal & Fuels'),('industry', 15, 'Communications Equipment'),
('industry', 16, 'Computers & Peripherals'),('industry', 17, 'Construction & Engineering'),
('industry', 18, 'Consumer Finance'),('industry', 19, 'Containers & Packaging'),('industry', 20, 'Drugs'),
('industry', 21, 'Education'),('industry', 22, 'Electric Utilities'),('industry', 23, 'Electrical Equipment'),
('industry', 24, 'Electronics'),('industry', 25, 'Entertainment'),('industry', 26, 'Environmental Services'),
('industry', 27, 'Financial Services'),('industry', 28, 'Food Processing'),('industry', 29, 'Footwear'),
('industry', 30, 'Forest & Paper Products'),('industry', 31, 'Gas Utilities'),
('industry', 32, 'Grocery Stores'),('industry', 33, 'Health Care Facilities'),
('industry', 34, 'Health Care Services'),('industry', 35, 'Home Building'),
('industry', 36, 'Hotels & Lodging'),('industry', 38, 'Household Durables'),
('industry', 37, 'Household Products'),('industry', 39, 'Insurance, Life & Health'),
('industry', 40, 'Insurance, Property & Casualty'),('industry', 41, 'Internet Services'),
('industry', 42, 'Investment Management'),('industry', 43, 'Leisure Products'),('industry', 44, 'Machinery'),
('industry', 45, 'Medical Devices'),('industry', 46, 'Metals & Mining'),('industry', 50, 'Office Equipment'),
('industry', 47, 'Oil & Gas Equipment & Services'),('industry', 48, 'Oil & Gas Exploration & Production'),
('industry', 49, 'Oil & Gas Integrated'),('industry', 51, 'Personal Care'),('industry', 52, 'Pipelines'),
('industry', 53, 'Precious Metals'),('industry', 54, 'Publishing'),('industry', 55, 'Railroads'),
('industry', 56, 'Real Estate'),('industry', 57, 'Real Estate Investment Trusts'),
('industry', 58, 'Restaurants'),('industry', 59, 'Retail, Apparel'),('industry', 60, 'Retail, General'),
('industry', 61, 'Retail, Online'),('industry', 62, 'Retail, Specialty'),
('industry', 63, 'Scientific Instruments'),('industry', 64, 'Semiconductor Equipment'),
('industry', 65, 'Semiconductors'),('industry', 66, 'Shipping'),('industry', 67, 'Software'),
('industry', 68, 'Staffing'),('industry', 69, 'Steel'),('industry', 70, 'Telecommunication Services'),
('industry', 71, 'Textiles'),('industry', 72, 'Tobacco'),('industry', 73, 'Toys & Games'),
('industry', 74, 'Trucking'),('industry', 75, 'Water Utilities'),('industry', 76, 'Wholesale Distribution'),
('source', 3, '10-K'),('source', 4, '10-Q'),('source', 5, '20-F'),('source', 2, 'Annual report'),
('source', 7, 'Company web site'),('source', 8, 'Newspaper'),('source', 6, 'Press release'),
('source', 0, 'S & P'),('source', 9, 'The bank on the corner'),('source', 1, 'Value Line');
CREATE TABLE change_log (
  id INTEGER PRIMARY KEY,
  company_id INTEGER NOT NULL,
  revision INTEGER NOT NULL,
  change TEXT NOT NULL,
  changed_by TEXT NOT NULL,
  changed_at TEXT NOT NULL) STRICT;
INSERT INTO change_log VALUES
(1, 1, 1, 'saved', 'anna@desk', '2024-05-06T07:08:09Z'),
(2, 1, 2, 'saved', 'anna@desk', '2024-05-06T07:08:09Z'),
(3, 1, 3, 'saved', 'anna@desk', '2024-05-06T07:08:09Z'),
(4, 1, 4, 'saved', 'anna@desk', '2024-05-06T07:08:09Z'),
(5, 1, 5, 'saved', 'anna@desk', '2024-05-06T07:08:09Z'),
(6, 1, 6, 'saved', 'anna@desk', '2024-05-06T07:08:09Z'),
(7, 1, 7, 'saved', 'anna@desk', '2024-05-06T07:08:09Z'),
(8, 2, 1, 'saved', 'anna@desk', '2024-05-06T08:09:10Z'),
(9, 3, 1, 'saved', 'anna@desk', '2024-05-06T08:09:10Z'),
(10, 2, 1, 'removed', 'anna@desk', '2024-05-06T08:09:10Z'),
(11, 3, 1, 'removed', 'anna@desk', '2024-05-06T08:09:10Z'),
(12, 4, 1, 'saved', 'anna@desk', '2024-05-07T07:08:09Z');
CREATE TABLE listing (
  company_id INTEGER NOT NULL PRIMARY KEY REFERENCES company (id) ON DELETE CASCADE,
  searched TEXT NOT NULL,
  name_key TEXT NOT NULL,
  symbol_key TEXT NOT NULL,
  exchange_key TEXT NOT NULL,
  industry_key TEXT NOT NULL,
  price REAL NOT NULL,
  price_date TEXT NOT NULL,
  saved_at TEXT NOT NULL) STRICT;
INSERT INTO listing VALUES
(1, replace('old & sons\nold\n\n','\n',char(10)), 'old & sons', 'old', '', '', 0.1, '', '2024-05-06T07:08:09Z'),
(4, replace('second\nsymbol of 1998 – “ärö & co.”, ''x'', 100 %, 漢 😀 é\nexchange of 1998 – “ärö & co.”, ''x'', 100 %, 漢 😀 é\nindustry of 1998 – “ärö & co.”, ''x'', 100 %, 漢 😀 é','\n',char(10)), 'second', 'symbol of 000000001998 – “aro & co.”, ''x'', 000000000100 %, 漢 😀 e', 'exchange of 000000001998 – “aro & co.”, ''x'', 000000000100 %, 漢 😀 e', 'industry of 000000001998 – “aro & co.”, ''x'', 000000000100 %, 漢 😀 e', 4000.7333333333336, '2011-10-22', '2024-05-07T07:08:09Z');
UPDATE sqlite_sequence SET seq = 4 WHERE name = 'company';
CREATE INDEX change_log_of_company ON change_log (company_id);
CREATE INDEX listing_by_name_key ON listing (name_key, company_id, searched);
CREATE INDEX listing_by_symbol_key ON listing (symbol_key, name_key, company_id);
CREATE INDEX listing_by_exchange_key ON listing (exchange_key, name_key, company_id);
CREATE INDEX listing_by_industry_key ON listing (industry_key, name_key, company_id);
CREATE INDEX listing_by_price ON listing (price, name_key, company_id);
CREATE INDEX listing_by_price_date ON listing (price_date, name_key, company_id);
CREATE INDEX listing_by_saved_at ON listing (saved_at, name_key, company_id);
COMMIT;
