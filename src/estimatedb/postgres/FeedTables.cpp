#include "estimatedb/postgres/FeedTables.h"

namespace lantos {

// What is asked here is a few rows by their keys: a trail that has grown since a server last counted it isn't to be
// read from its beginning for them.
const std::string_view kAskForFeed =
    "SELECT pg_catalog.set_config('search_path', pg_catalog.quote_ident($1), false), "
    "pg_catalog.set_config('lock_timeout', '5s', false), "
    "pg_catalog.set_config('client_min_messages', 'warning', false), "
    "pg_catalog.quote_ident('lantos_' || pg_catalog.hashtext($1)), "
    "EXISTS (SELECT FROM pg_catalog.pg_trigger t JOIN pg_catalog.pg_class c ON c.oid = t.tgrelid "
    "JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace "
    "WHERE n.nspname = $1 AND c.relname = 'trail' AND t.tgname = 'trailfeed_tells') "
    "AND pg_catalog.to_regclass(pg_catalog.quote_ident($1) || '.trailcount') IS NOT NULL "
    "AND pg_catalog.to_regclass(pg_catalog.quote_ident($1) || '.trailfeed') IS NOT NULL, "
    "pg_catalog.set_config('jit', 'off', false), "
    "pg_catalog.set_config('enable_seqscan', 'off', false)";

// The trigger is put off to the commit: whoever counts keeps others waiting for no longer than that. It names the
// schema itself, since whose path is set otherwise writes to the trail too.
const std::string_view kMakeFeed = R"(
SELECT pg_catalog.pg_advisory_xact_lock(1281453652, pg_catalog.hashtext(pg_catalog.current_schema()));
CREATE TABLE IF NOT EXISTS trailcount (counted bigint NOT NULL);
CREATE TABLE IF NOT EXISTS trailfeed (changenumber bigint PRIMARY KEY, trailnumber integer NOT NULL, writer text);
INSERT INTO trailcount SELECT coalesce(max(changenumber), 0) FROM trailfeed HAVING NOT EXISTS (SELECT FROM trailcount);
CREATE OR REPLACE FUNCTION trailfeed_tell() RETURNS trigger LANGUAGE plpgsql AS $feed$
DECLARE
  number bigint;
BEGIN
  EXECUTE pg_catalog.format('UPDATE %I.trailcount SET counted = counted + 1 RETURNING counted', TG_TABLE_SCHEMA)
    INTO number;
  IF number IS NULL THEN
    RETURN NULL;
  END IF;
  EXECUTE pg_catalog.format('INSERT INTO %I.trailfeed VALUES ($1, $2, $3)', TG_TABLE_SCHEMA)
    USING number, NEW.trailnumber, pg_catalog.current_setting('lantos.copy', true);
  IF number % 1000 = 0 THEN
    EXECUTE pg_catalog.format('DELETE FROM %I.trailfeed WHERE changenumber <= $1', TG_TABLE_SCHEMA)
      USING number - 5000;
  END IF;
  PERFORM pg_catalog.pg_notify('lantos_' || pg_catalog.hashtext(TG_TABLE_SCHEMA::text), number::text);
  RETURN NULL;
EXCEPTION WHEN OTHERS THEN
  RETURN NULL;
END
$feed$;
DROP TRIGGER IF EXISTS trailfeed_tells ON trail;
CREATE CONSTRAINT TRIGGER trailfeed_tells AFTER INSERT ON trail DEFERRABLE INITIALLY DEFERRED
  FOR EACH ROW EXECUTE FUNCTION trailfeed_tell();
)";

const std::string_view kAskForNews =
    "SELECT c.counted, f.changenumber, f.writer, t.* FROM (SELECT counted FROM trailcount LIMIT 1) c "
    "LEFT JOIN trailfeed f ON f.changenumber > $1 AND f.changenumber <= c.counted "
    "LEFT JOIN trail t ON t.trailnumber = f.trailnumber ORDER BY f.changenumber";

const std::string_view kAskForUntold =
    "WITH ends AS (SELECT coalesce(max(trailnumber), 0) - 1000 AS next FROM trail), "
    "untold AS (SELECT t.trailnumber FROM trail t "
    "WHERE t.trailnumber > (SELECT least($1::bigint, next) FROM ends) "
    "AND NOT EXISTS (SELECT FROM trailfeed f WHERE f.trailnumber = t.trailnumber)) "
    "SELECT next, (SELECT count(*) FROM untold WHERE trailnumber > $1::bigint), "
    "(SELECT count(*) FROM untold WHERE trailnumber > next) FROM ends";

}  // namespace lantos
