4SELECT A,
  B
FROM
  T
WHERE
  (A = 1)
