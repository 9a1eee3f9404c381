-- A month's pay of a small company, in the order of the salary sheet (plant, department, name). It
-- reads no table: any SQLite database will do.
WITH RECURSIVE
  numbers(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM numbers WHERE i < 95),
  families(k, family) AS (VALUES
    (0, 'Agarwal'), (1, 'Banerjee'), (2, 'D''Souza'), (3, 'Fernandes'), (4, 'Gupta'), (5, 'Iyer'),
    (6, 'Joshi'), (7, 'Kulkarni'), (8, 'Nair'), (9, 'Patel'), (10, 'Reddy'), (11, 'Thomas')),
  firsts(k, first) AS (VALUES
    (0, 'Asha'), (1, 'Bela'), (2, 'Chetan'), (3, 'Divya'), (4, 'Irfan'), (5, 'Joel'), (6, 'Meera'),
    (7, 'Renée'), (8, 'Suresh')),
  plants(k, plant) AS (VALUES (0, 'Nashik'), (1, 'Pune')),
  departments(k, department) AS (VALUES
    (0, 'Accounts'), (1, 'Dispatch'), (2, 'Packing'), (3, 'Workshop')),
  earned AS (
    SELECT i, plant, department, first || ' ' || family AS name,
           date('2009-04-01', '+' || (i * 6151 % 5840) || ' days') AS joined,
           14000 + i * 7919 % 260 * 100 AS basic, i * 7907 % 24 * 125 AS overtime,
           CASE WHEN i * 31 % 7 = 0 THEN 500 * (1 + i % 5) ELSE 0 END AS advance
    FROM numbers
      JOIN families ON families.k = i * 5 % 12
      JOIN firsts ON firsts.k = i * 7 % 9
      JOIN plants ON plants.k = i / 48
      JOIN departments ON departments.k = i / 12 % 4)
SELECT plant, department, name, joined, basic, basic * 2 / 5 AS allowance, overtime,
       basic * 12 / 100 AS fund, advance,
       basic + basic * 2 / 5 + overtime - basic * 12 / 100 - advance AS net
FROM earned
ORDER BY plant, department, name
