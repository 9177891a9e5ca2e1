-- SPDX-License-Identifier: MIT
-- A file of schema version 1, as its first release wrote it.
PRAGMA journal_mode = WAL;
PRAGMA application_id = 1447776835;
PRAGMA user_version = 1;
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
  "blnLockBasicInfo" INTEGER NOT NULL DEFAULT 0
) STRICT;
CREATE TABLE series (
  company_id INTEGER NOT NULL REFERENCES company (id) ON DELETE CASCADE,
  series TEXT NOT NULL,
  element INTEGER NOT NULL,
  value REAL NOT NULL,
  PRIMARY KEY (company_id, series, element)
) STRICT, WITHOUT ROWID;
INSERT INTO company (id, revision, saved_by, saved_at, "Name", "Symbol", "Notes", "CurrentPrice", "LastFY", "LastFYDate", "LastQDate", "intUnit", "intLeadPeriod", "strCurSymbol", "blnTaxRate")
VALUES (1, 7, 'anna@desk', '2024-05-06T07:08:09Z', 'Old & Sons', 'OLD', 'kept from version 1', 0.1, 2023, '2023-12-31', '2024-03-31', 6, 2, '$', 1);
INSERT INTO company (id, revision, saved_by, saved_at, "Name", "intLeadPeriod") VALUES (4, 1, 'ben@desk', '2024-05-07T07:08:09Z', 'Second', -1);
INSERT INTO series (company_id, series, element, value) VALUES (1, 'YEPSSeries', 1, 1.25), (1, 'YEPSSeries', 10, -0.3), (1, 'QRevenueSeries', 34, 1234.5678);
