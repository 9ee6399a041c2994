-- The demo's sample database: a small trading business. Every row is computed from its
-- number, so the same script always builds the same database. Written for SQLite; each
-- statement ends with a semicolon at the end of a line.

CREATE TABLE CATEGORIES (
  ID INTEGER NOT NULL PRIMARY KEY,
  NAME VARCHAR(30) NOT NULL,
  DESCRIPTION TEXT
);

CREATE TABLE SUPPLIERS (
  ID INTEGER NOT NULL PRIMARY KEY,
  COMPANY VARCHAR(40) NOT NULL,
  CONTACT VARCHAR(30),
  CITY VARCHAR(30),
  COUNTRY CHAR(2),
  PHONE VARCHAR(20)
);

CREATE TABLE SHIPPERS (
  ID INTEGER NOT NULL PRIMARY KEY,
  COMPANY VARCHAR(40) NOT NULL,
  PHONE VARCHAR(20)
);

CREATE TABLE EMPLOYEES (
  ID INTEGER NOT NULL PRIMARY KEY,
  FIRST_NAME VARCHAR(20) NOT NULL,
  LAST_NAME VARCHAR(20) NOT NULL,
  TITLE VARCHAR(30),
  MANAGER_ID INTEGER REFERENCES EMPLOYEES (ID),
  HIRED DATE,
  SALARY NUMERIC(10,2),
  EXTENSION SMALLINT
);

CREATE TABLE CUSTOMERS (
  ID INTEGER NOT NULL PRIMARY KEY,
  COMPANY VARCHAR(40) NOT NULL,
  CONTACT VARCHAR(30),
  CITY VARCHAR(30),
  COUNTRY CHAR(2),
  CREDIT_LIMIT NUMERIC(12,2),
  SINCE DATE,
  NOTES TEXT
);

CREATE TABLE PRODUCTS (
  ID INTEGER NOT NULL PRIMARY KEY,
  NAME VARCHAR(40) NOT NULL,
  CATEGORY_ID INTEGER NOT NULL REFERENCES CATEGORIES (ID),
  SUPPLIER_ID INTEGER REFERENCES SUPPLIERS (ID),
  UNIT_PRICE NUMERIC(10,2) NOT NULL,
  UNITS_IN_STOCK INTEGER,
  WEIGHT DOUBLE,
  DISCONTINUED BOOLEAN NOT NULL DEFAULT 0
);

CREATE TABLE ORDERS (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  CUSTOMER_ID INTEGER NOT NULL REFERENCES CUSTOMERS (ID),
  EMPLOYEE_ID INTEGER REFERENCES EMPLOYEES (ID),
  SHIPPER_ID INTEGER REFERENCES SHIPPERS (ID),
  ORDER_DATE DATE NOT NULL,
  SHIPPED TIMESTAMP,
  FREIGHT NUMERIC(8,2),
  STATUS VARCHAR(10) NOT NULL
);

CREATE TABLE ORDER_LINES (
  ORDER_ID INTEGER NOT NULL REFERENCES ORDERS (ID),
  LINE_NO SMALLINT NOT NULL,
  PRODUCT_ID INTEGER NOT NULL REFERENCES PRODUCTS (ID),
  QUANTITY INTEGER NOT NULL,
  UNIT_PRICE NUMERIC(10,2) NOT NULL,
  DISCOUNT DOUBLE NOT NULL DEFAULT 0,
  PRIMARY KEY (ORDER_ID, LINE_NO)
);

INSERT INTO CATEGORIES (ID, NAME, DESCRIPTION) VALUES
  (1, 'Beverages', 'Coffee, tea, juices and soft drinks'),
  (2, 'Condiments', 'Sauces, spreads and seasonings'),
  (3, 'Confections', 'Sweets, chocolate and pastries'),
  (4, 'Dairy', 'Cheese, butter and yoghurt'),
  (5, 'Grains', 'Bread, pasta and cereals'),
  (6, 'Meat', 'Prepared and cured meat'),
  (7, 'Produce', 'Dried fruit and vegetables'),
  (8, 'Seafood', 'Fish, shellfish and seaweed');

INSERT INTO SHIPPERS (ID, COMPANY, PHONE) VALUES
  (1, 'Speedy Express', '+44 20 7946 0101'),
  (2, 'United Package', '+49 30 901820'),
  (3, 'Federal Freight', '+1 212 555 0147'),
  (4, 'Harbour Lines', '+31 20 555 0199');

INSERT INTO SUPPLIERS (ID, COMPANY, CONTACT, CITY, COUNTRY, PHONE)
WITH RECURSIVE
  N(X) AS (SELECT 1 UNION ALL SELECT X + 1 FROM N WHERE X < 12),
  PLACE(I, CITY, COUNTRY) AS (VALUES (0, 'London', 'GB'), (1, 'Lyon', 'FR'), (2, 'Hamburg', 'DE'),
    (3, 'Turin', 'IT'), (4, 'Bergen', 'NO'), (5, 'Osaka', 'JP')),
  WORD(I, W) AS (VALUES (0, 'Northern'), (1, 'Golden'), (2, 'Old Mill'), (3, 'Blue Coast'),
    (4, 'Alpine'), (5, 'Green Valley')),
  KIND(I, W) AS (VALUES (0, 'Foods'), (1, 'Trading'), (2, 'Farms'), (3, 'Provisions')),
  PERSON(I, W) AS (VALUES (0, 'Anna Berg'), (1, 'Luis Ortega'), (2, 'Mei Tanaka'),
    (3, 'Peter Wolf'), (4, 'Sara Costa'), (5, 'Tom Reilly'), (6, 'Ines Laurent'))
SELECT X, WORD.W || ' ' || KIND.W, PERSON.W, PLACE.CITY, PLACE.COUNTRY,
       '+' || (10 + X * 7 % 80) || ' ' || (5550100 + X * 37)
FROM N
JOIN WORD ON WORD.I = (X - 1) % 6
JOIN KIND ON KIND.I = (X - 1) % 4
JOIN PERSON ON PERSON.I = X * 3 % 7
JOIN PLACE ON PLACE.I = X * 5 % 6;

INSERT INTO EMPLOYEES (ID, FIRST_NAME, LAST_NAME, TITLE, MANAGER_ID, HIRED, SALARY, EXTENSION)
VALUES
  (1, 'Eve', 'Stone', 'Managing Director', NULL, '2012-02-01', 120000, 100),
  (2, 'Frank', 'Moss', 'Sales Manager', 1, '2014-06-15', 85000, 201),
  (3, 'Gina', 'Hart', 'Sales Representative', 2, '2016-09-01', 52000, 202),
  (4, 'Hugo', 'Lind', 'Sales Representative', 2, '2017-03-20', 51000, 203),
  (5, 'Iris', 'Novak', 'Sales Representative', 2, '2019-01-07', 48000, 204),
  (6, 'Jon', 'Park', 'Inside Sales Coordinator', 2, '2020-11-02', 41000, 205),
  (7, 'Kim', 'Alder', 'Logistics Manager', 1, '2015-05-11', 78000, 301),
  (8, 'Lena', 'Brook', 'Warehouse Clerk', 7, '2018-08-27', 36000, 302),
  (9, 'Marc', 'Dupont', 'Sales Representative', 2, '2021-04-19', 47000, 206),
  (10, 'Nora', 'Quinn', 'Accountant', 1, '2013-10-01', 64000, 401);

INSERT INTO CUSTOMERS (ID, COMPANY, CONTACT, CITY, COUNTRY, CREDIT_LIMIT, SINCE, NOTES)
WITH RECURSIVE
  N(X) AS (SELECT 1 UNION ALL SELECT X + 1 FROM N WHERE X < 60),
  PLACE(I, CITY, COUNTRY) AS (VALUES (0, 'Paris', 'FR'), (1, 'Berlin', 'DE'), (2, 'Madrid', 'ES'),
    (3, 'London', 'GB'), (4, 'Vienna', 'AT'), (5, 'Boston', 'US'), (6, 'Lisbon', 'PT'),
    (7, 'Oslo', 'NO'), (8, 'Milan', 'IT'), (9, 'Dublin', 'IE')),
  FIRST(I, W) AS (VALUES (0, 'Corner'), (1, 'City'), (2, 'Harbour'), (3, 'Market'), (4, 'Royal'),
    (5, 'Little'), (6, 'Grand'), (7, 'Riverside'), (8, 'Station'), (9, 'Garden'), (10, 'Bay'),
    (11, 'Hill')),
  LAST(I, W) AS (VALUES (0, 'Deli'), (1, 'Bistro'), (2, 'Grocers'), (3, 'Cafe'), (4, 'Stores')),
  PERSON(I, W) AS (VALUES (0, 'Alice Moreau'), (1, 'Bruno Keller'), (2, 'Carla Ruiz'),
    (3, 'David Shaw'), (4, 'Elena Gruber'), (5, 'Frank Miller'), (6, 'Greta Silva'),
    (7, 'Hakon Lie'), (8, 'Irene Conti'), (9, 'James Byrne'), (10, 'Karin Vogel'))
SELECT X, FIRST.W || ' ' || LAST.W,
       PERSON.W, PLACE.CITY, PLACE.COUNTRY,
       CASE WHEN X % 9 = 0 THEN NULL ELSE 1000 * (1 + X * 7 % 20) END,
       date('2015-01-01', '+' || (X * 53 % 2900) || ' days'),
       CASE X % 7 WHEN 0 THEN 'Pays late' WHEN 3 THEN 'Prefers delivery before noon' ELSE NULL END
FROM N
JOIN FIRST ON FIRST.I = (X - 1) % 12
JOIN LAST ON LAST.I = (X - 1) % 5
JOIN PERSON ON PERSON.I = X * 4 % 11
JOIN PLACE ON PLACE.I = X * 3 % 10;

INSERT INTO PRODUCTS (ID, NAME, CATEGORY_ID, SUPPLIER_ID, UNIT_PRICE, UNITS_IN_STOCK, WEIGHT,
                      DISCONTINUED)
WITH RECURSIVE
  N(X) AS (SELECT 1 UNION ALL SELECT X + 1 FROM N WHERE X < 64),
  ITEM(C, I, W) AS (VALUES
    (1, 0, 'Espresso Beans'), (1, 1, 'Green Tea'), (1, 2, 'Apple Juice'), (1, 3, 'Ginger Ale'),
    (1, 4, 'Lemonade'), (1, 5, 'Cocoa'), (1, 6, 'Mineral Water'), (1, 7, 'Chai'),
    (2, 0, 'Mustard'), (2, 1, 'Chutney'), (2, 2, 'Pesto'), (2, 3, 'Soy Sauce'),
    (2, 4, 'Chili Paste'), (2, 5, 'Olive Oil'), (2, 6, 'Vinegar'), (2, 7, 'Honey'),
    (3, 0, 'Dark Chocolate'), (3, 1, 'Toffee'), (3, 2, 'Marzipan'), (3, 3, 'Shortbread'),
    (3, 4, 'Nougat'), (3, 5, 'Liquorice'), (3, 6, 'Fudge'), (3, 7, 'Wafers'),
    (4, 0, 'Cheddar'), (4, 1, 'Brie'), (4, 2, 'Gouda'), (4, 3, 'Butter'),
    (4, 4, 'Feta'), (4, 5, 'Yoghurt'), (4, 6, 'Mascarpone'), (4, 7, 'Parmesan'),
    (5, 0, 'Rye Bread'), (5, 1, 'Spaghetti'), (5, 2, 'Oat Flakes'), (5, 3, 'Couscous'),
    (5, 4, 'Basmati Rice'), (5, 5, 'Gnocchi'), (5, 6, 'Crispbread'), (5, 7, 'Polenta'),
    (6, 0, 'Salami'), (6, 1, 'Smoked Ham'), (6, 2, 'Pastrami'), (6, 3, 'Chorizo'),
    (6, 4, 'Meatballs'), (6, 5, 'Pate'), (6, 6, 'Bresaola'), (6, 7, 'Sausages'),
    (7, 0, 'Dried Apricots'), (7, 1, 'Sun-dried Tomatoes'), (7, 2, 'Raisins'), (7, 3, 'Dates'),
    (7, 4, 'Dried Mushrooms'), (7, 5, 'Figs'), (7, 6, 'Prunes'), (7, 7, 'Cranberries'),
    (8, 0, 'Smoked Salmon'), (8, 1, 'Anchovies'), (8, 2, 'Crab Meat'), (8, 3, 'Pickled Herring'),
    (8, 4, 'Tuna'), (8, 5, 'Nori'), (8, 6, 'Mussels'), (8, 7, 'Caviar'))
SELECT X, ITEM.W, ITEM.C, 1 + X * 5 % 12,
       round(2.5 + (X * 37 % 97) * 0.75, 2),
       X * 13 % 120,
       round(0.1 + (X * 7 % 25) * 0.1, 2),
       CASE WHEN X % 17 = 0 THEN 1 ELSE 0 END
FROM N JOIN ITEM ON ITEM.C = (X - 1) / 8 + 1 AND ITEM.I = (X - 1) % 8;

INSERT INTO ORDERS (ID, CUSTOMER_ID, EMPLOYEE_ID, SHIPPER_ID, ORDER_DATE, SHIPPED, FREIGHT, STATUS)
WITH RECURSIVE
  N(X) AS (SELECT 1 UNION ALL SELECT X + 1 FROM N WHERE X < 320),
  REP(I, E) AS (VALUES (0, 3), (1, 4), (2, 5), (3, 6), (4, 9)),
  D(X, DAY) AS (SELECT X, date('2023-01-02', '+' || ((X - 1) * 2 + X * 3 % 2) || ' days') FROM N)
SELECT N.X, 1 + N.X * 17 % 60,
       CASE WHEN N.X % 23 = 0 THEN NULL ELSE REP.E END,
       1 + N.X * 3 % 4,
       D.DAY,
       CASE WHEN N.X > 300 OR N.X % 29 = 0 THEN NULL
            ELSE datetime(D.DAY, '+' || (1 + N.X % 5) || ' days', '+' || (8 + N.X % 9) || ' hours')
       END,
       round(5 + (N.X * 31 % 200) * 0.45, 2),
       CASE WHEN N.X % 29 = 0 THEN 'CANCELLED' WHEN N.X > 300 THEN 'OPEN' ELSE 'SHIPPED' END
FROM N JOIN REP ON REP.I = N.X * 7 % 5 JOIN D ON D.X = N.X;

INSERT INTO ORDER_LINES (ORDER_ID, LINE_NO, PRODUCT_ID, QUANTITY, UNIT_PRICE, DISCOUNT)
WITH RECURSIVE L(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM L WHERE I < 4)
SELECT O.ID, L.I, P.ID, 1 + (O.ID * 7 + L.I * 11) % 40, P.UNIT_PRICE,
       CASE WHEN (O.ID + L.I) % 6 = 0 THEN 0.1 WHEN (O.ID + L.I) % 10 = 0 THEN 0.05 ELSE 0 END
FROM ORDERS O
JOIN L ON L.I <= 1 + O.ID * 5 % 4
JOIN PRODUCTS P ON P.ID = 1 + (O.ID * 13 + L.I * 29) % 64;

CREATE VIEW ORDER_TOTALS AS
SELECT O.ID AS ORDER_ID, C.COMPANY AS CUSTOMER, O.ORDER_DATE, O.STATUS,
       COUNT(*) AS LINES,
       round(SUM(L.QUANTITY * L.UNIT_PRICE * (1 - L.DISCOUNT)), 2) AS TOTAL
FROM ORDERS O
JOIN CUSTOMERS C ON C.ID = O.CUSTOMER_ID
JOIN ORDER_LINES L ON L.ORDER_ID = O.ID
GROUP BY O.ID, C.COMPANY, O.ORDER_DATE, O.STATUS;

CREATE VIEW PRODUCT_SALES AS
SELECT P.ID AS PRODUCT_ID, P.NAME AS PRODUCT, G.NAME AS CATEGORY,
       SUM(L.QUANTITY) AS UNITS_SOLD,
       round(SUM(L.QUANTITY * L.UNIT_PRICE * (1 - L.DISCOUNT)), 2) AS REVENUE
FROM PRODUCTS P
JOIN CATEGORIES G ON G.ID = P.CATEGORY_ID
LEFT JOIN ORDER_LINES L ON L.PRODUCT_ID = P.ID
GROUP BY P.ID, P.NAME, G.NAME;
