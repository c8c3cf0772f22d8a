<?xml version="1.0" encoding="utf-8"?>
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
<xsl:output method="html" encoding="utf-8" doctype-system="about:legacy-compat"/>

<xsl:template match="/list">
<html lang="en">
<head>
<meta name="viewport" content="width=device-width"/>
<title><xsl:value-of select="Movie/Title"/></title>
<style>
  :root {
    --Window: #F7F8FA; --Surface: #FFFFFF; --Strip: #E4E9EF; --Line: #C9D1DB;
    --Ink: #1B2430; --InkMuted: #4B5868; --Accent: #0F6B5F; --AccentSoft: #D9EFEA; --Neutral: #64748B;
  }
  * { box-sizing: border-box; }
  ::-webkit-scrollbar { width: 12px; height: 12px; background: var(--Window); }
  ::-webkit-scrollbar-thumb { min-height: 36px; border: 3px solid var(--Window); border-radius: 6px; background: var(--Neutral); }
  ::-webkit-scrollbar-thumb:hover { background: var(--InkMuted); }
  html { background: var(--Window); }
  body {
    max-width: 68rem; margin: 0 auto; padding: 28px 32px 40px;
    background: var(--Window); color: var(--Ink);
    font: 15px/1.5 Inter, system-ui, "Segoe UI", "DejaVu Sans", sans-serif;
    overflow-wrap: anywhere;
  }
  [hidden] { display: none !important; }
  h1, h2, h3, p, ul, dl, dd { margin: 0; padding: 0; }
  ul { list-style: none; }
  h1 { font-size: 30px; line-height: 1.2; font-weight: 700; letter-spacing: -0.01em; }
  h2 { margin-bottom: 14px; font-size: 18px; line-height: 1.3; font-weight: 650; }
  h3 { font-size: 14px; font-weight: 650; color: var(--InkMuted); }
  a, button.more { color: var(--Accent); text-underline-offset: 3px; }
  :focus-visible { outline: 2px solid var(--Accent); outline-offset: 3px; border-radius: 3px; }
  section { margin-top: 32px; padding-top: 20px; border-top: 1px solid var(--Line); }
  .muted { color: var(--InkMuted); }

  .film { display: grid; grid-template: auto 1fr / 236px minmax(0, 1fr); gap: 0 32px; align-items: start; }
  .covers { grid-row: span 2; }
  .cover {
    display: block; width: 100%; height: auto; max-height: 30rem; aspect-ratio: auto 2 / 3; object-fit: contain;
    background: var(--Strip); box-shadow: 0 8px 18px rgb(27 36 48 / 0.26), 0 1px 3px rgb(27 36 48 / 0.3);
  }
  .cover + .cover { width: 50%; margin-top: 20px; }
  h1.long { font-size: 22px; }
  h1.endless { font-size: 17px; max-height: 10.8em; overflow: auto; }
  .line { display: flex; flex-wrap: wrap; align-items: center; gap: 6px 14px; margin-top: 10px; }
  .bar { display: inline-flex; }
  .bar img { height: 20px; }
  .score { font-size: 20px; font-weight: 700; }
  .badge { height: 24px; }
  .chip { padding: 1px 10px; border: 1px solid var(--Line); border-radius: 999px; background: var(--Surface); font-size: 13px; }
  .chip.on { border-color: var(--AccentSoft); background: var(--AccentSoft); color: var(--Accent); font-weight: 550; }
  .text { white-space: pre-line; }
  .plot { max-width: 46em; margin-top: 18px; font-size: 16px; line-height: 1.6; }
  .links { display: flex; flex-wrap: wrap; gap: 6px 20px; margin-top: 18px; }
  .crew { display: grid; grid-template-columns: repeat(auto-fit, minmax(13rem, 1fr)); gap: 20px 32px; }
  .crew h3 { margin-bottom: 4px; }
  .cast { columns: 2 20rem; column-gap: 40px; }
  .cast li { display: flex; gap: 16px; padding: 5px 0; border-bottom: 1px solid var(--Strip); break-inside: avoid; }
  .cast li > * { flex: 1 1 0; min-width: 0; }
  button.more {
    margin-bottom: 10px; padding: 6px 14px; border: 1px solid var(--Line); border-radius: 6px;
    background: var(--Surface); font: inherit; font-weight: 550; cursor: pointer;
  }
  button.more:hover { background: var(--AccentSoft); }
  .facts { display: grid; grid-template-columns: repeat(auto-fill, minmax(15rem, 1fr)); gap: 14px 32px; }
  .facts.key { grid-template-columns: repeat(auto-fill, minmax(10rem, 1fr)); gap: 10px 24px; margin-top: 18px; }
  .facts dt { font-size: 13px; color: var(--InkMuted); }
  .note { max-width: 44em; }
  .note + .note { margin-top: 16px; }
  @media (max-width: 700px) {
    body { padding: 20px; }
    .film { grid-template: auto / 132px minmax(0, 1fr); gap: 0 20px; }
    .covers { grid-row: auto; }
    .story { grid-column: 1 / -1; }
    h1 { font-size: 24px; }
    h1.long { font-size: 19px; }
  }
  @media (max-width: 360px) {
    .film { display: block; }
    .covers { width: 132px; margin-bottom: 16px; }
  }
  @media print {
    /* Paper is white, whatever the skin. */
    :root {
      --Surface: none; --Strip: rgb(228 233 239); --Line: rgb(201 209 219); --Ink: rgb(27 36 48); --InkMuted: rgb(75 88 104);
      --Accent: rgb(27 36 48); --AccentSoft: none;
    }
    html, body { background: none; }
    body { max-width: none; padding: 0; font-size: 11pt; }
    button, .links { display: none; }
    li[hidden] { display: flex !important; }
    img, li, .fact { break-inside: avoid; }
  }
</style>
</head>
<body>
<main><xsl:apply-templates select="Movie"/></main>
<script>
  'use strict';
  // A long list begins folded; its button stands above it, where it stays in view when the list grows.
  for (const button of document.querySelectorAll('button.more')) {
    button.addEventListener('click', () => {
      const folded = button.getAttribute('aria-expanded') === 'true';
      for (const row of button.nextElementSibling.querySelectorAll('.further'))
        row.hidden = folded;
      button.setAttribute('aria-expanded', String(!folded));
      button.textContent = folded ? button.dataset.all : 'Show fewer';
    });
  }
  for (const cover of document.querySelectorAll('.cover'))
    cover.addEventListener('error', () => { cover.style.visibility = 'hidden'; });
</script>
</body>
</html>
</xsl:template>

<xsl:template match="Movie">
  <div class="film">
    <div class="covers">
      <img class="cover" src="{ImageFront}">
        <xsl:attribute name="alt">
          <xsl:choose>
            <xsl:when test="contains(ImageFront, 'No Image.jpg')">No picture</xsl:when>
            <xsl:otherwise>Front cover</xsl:otherwise>
          </xsl:choose>
        </xsl:attribute>
      </img>
      <xsl:if test="not(contains(ImageBack, 'No Image.jpg'))"><img class="cover" src="{ImageBack}" alt="Back cover"/></xsl:if>
    </div>
    <header>
      <xsl:call-template name="title"/>
      <div class="line">
        <xsl:if test="Year != ''"><span class="muted"><xsl:value-of select="Year"/></span></xsl:if>
        <xsl:if test="Runtime != '' and Runtime != 'N/A'">
          <span class="muted"><xsl:value-of select="Runtime"/><xsl:if test="number(Runtime) = number(Runtime)"> min</xsl:if></span>
        </xsl:if>
        <xsl:call-template name="names"><xsl:with-param name="people" select="Director"/>
          <xsl:with-param name="most" select="/list/Config/maxDirectors"/></xsl:call-template>
      </div>
      <xsl:if test="contains('0123456789', substring(WebDetails/IMDbRating, 1, 1)) and WebDetails/IMDbRating != ''">
        <div class="line">
          <span class="bar" role="img" aria-label="Rating {WebDetails/IMDbRating} of 10">
            <xsl:for-each select="WebDetails/IMDbRatingBar"><img src="{.}" alt=""/></xsl:for-each>
          </span>
          <span class="score"><xsl:value-of select="WebDetails/IMDbRating"/></span>
          <xsl:if test="WebDetails/IMDbVotes != '' and WebDetails/IMDbVotes != 'N/A'">
            <span class="muted"><xsl:value-of select="WebDetails/IMDbVotes"/> votes</span>
          </xsl:if>
        </div>
      </xsl:if>
      <div class="line">
        <xsl:choose>
          <xsl:when test="Rated = 'G' or Rated = 'PG' or Rated = 'PG-13' or Rated = 'R' or Rated = 'NC17'">
            <img class="badge" src="{RatedImage}" alt="Rated {Rated}"/>
          </xsl:when>
          <xsl:when test="Rated != '' and Rated != 'N/A'"><span class="chip"><xsl:value-of select="Rated"/></span></xsl:when>
        </xsl:choose>
        <xsl:if test="Format != ''"><span class="chip"><xsl:value-of select="Format"/></span></xsl:if>
        <xsl:choose>
          <xsl:when test="PersonalDetails/SeenIt = 'Yes'"><span class="chip on">Seen</span></xsl:when>
          <xsl:otherwise><span class="chip">Not seen yet</span></xsl:otherwise>
        </xsl:choose>
        <xsl:if test="PersonalDetails/Request = 'Yes'"><span class="chip on">Requested</span></xsl:if>
      </div>
    </header>
    <div class="story">
      <dl class="facts key">
        <xsl:if test="not(starts-with(Title, AlternateTitle))">
          <xsl:apply-templates select="AlternateTitle" mode="fact"><xsl:with-param name="label">Title without year</xsl:with-param></xsl:apply-templates>
        </xsl:if>
        <xsl:apply-templates select="Country" mode="fact"/>
        <xsl:apply-templates select="SpokenLanguage" mode="fact"><xsl:with-param name="label">Language</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="SubLanguage" mode="fact"><xsl:with-param name="label">Subtitle languages</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="Color" mode="fact"/>
        <xsl:apply-templates select="Index" mode="fact"/>
        <xsl:apply-templates select="Discs[. != '0']" mode="fact"><xsl:with-param name="label">Discs/Tapes</xsl:with-param></xsl:apply-templates>
      </dl>
      <xsl:if test="Plot != '' and Plot != 'N/A'"><p class="plot text"><xsl:value-of select="Plot"/></p></xsl:if>
      <div class="links">
        <xsl:if test="WebDetails/IMDbNumber != ''"><a href="{WebDetails/IMDbLink}">IMDb page</a></xsl:if>
        <xsl:apply-templates select="WebDetails/TrailerURL" mode="link"><xsl:with-param name="label">Trailer</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="WebDetails/UserURL1 | WebDetails/UserURL2" mode="link"/>
      </div>
    </div>
  </div>

  <xsl:if test="Director | Writer | Producer">
    <section>
      <h2>Crew</h2>
      <div class="crew">
        <xsl:call-template name="crew"><xsl:with-param name="title">Directed by</xsl:with-param><xsl:with-param name="people" select="Director"/></xsl:call-template>
        <xsl:call-template name="crew"><xsl:with-param name="title">Written by</xsl:with-param><xsl:with-param name="people" select="Writer"/></xsl:call-template>
        <xsl:call-template name="crew"><xsl:with-param name="title">Produced by</xsl:with-param><xsl:with-param name="people" select="Producer"/></xsl:call-template>
      </div>
    </section>
  </xsl:if>
  <xsl:if test="Actor">
    <section>
      <h2>Cast</h2>
      <xsl:call-template name="people"><xsl:with-param name="people" select="Actor"/><xsl:with-param name="class">cast</xsl:with-param></xsl:call-template>
    </section>
  </xsl:if>

  <xsl:if test="PersonalDetails/LastViewing != '' or PersonalDetails/PurchasePrice != '' or PersonalDetails/PurchasedWhere != '' or CustomDetails/* != ''">
    <section>
      <h2>My copy</h2>
      <dl class="facts">
        <xsl:apply-templates select="PersonalDetails/LastViewing" mode="fact"><xsl:with-param name="label">Last viewing</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="PersonalDetails/PurchasePrice[. != '0']" mode="fact"><xsl:with-param name="label">Purchase price</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="PersonalDetails/PurchasedWhere" mode="fact"><xsl:with-param name="label">Purchased at</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="CustomDetails/Custom1" mode="fact"><xsl:with-param name="label">Custom 1</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="CustomDetails/Custom2" mode="fact"><xsl:with-param name="label">Custom 2</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="CustomDetails/Custom3" mode="fact"><xsl:with-param name="label">Custom 3</xsl:with-param></xsl:apply-templates>
      </dl>
    </section>
  </xsl:if>

  <xsl:if test="FormatDetails/*[. != '' and . != '0' and . != 'N/A'] or FileNotes != ''">
    <section>
      <h2>File</h2>
      <dl class="facts">
        <xsl:apply-templates select="FormatDetails/Resolution" mode="fact"/>
        <xsl:apply-templates select="FormatDetails/Filename" mode="fact"><xsl:with-param name="label">Name</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="FormatDetails/Filesize[. != '0']" mode="fact"><xsl:with-param name="label">Size</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="FormatDetails/VideoType" mode="fact"><xsl:with-param name="label">Video</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="FormatDetails/VideoBitrate[. != '0']" mode="fact"><xsl:with-param name="label">Video bit rate</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="FormatDetails/AudioType" mode="fact"><xsl:with-param name="label">Audio</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="FormatDetails/AudioBitrate[. != '0']" mode="fact"><xsl:with-param name="label">Audio bit rate</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="FormatDetails/AudioChannels[. != '0']" mode="fact"><xsl:with-param name="label">Audio channels</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="FormatDetails/Group" mode="fact"><xsl:with-param name="label">Release group</xsl:with-param></xsl:apply-templates>
        <xsl:apply-templates select="FileNotes" mode="fact"><xsl:with-param name="label">Notes</xsl:with-param></xsl:apply-templates>
      </dl>
    </section>
  </xsl:if>

  <xsl:variable name="rating" select="PersonalDetails/MyRating[. != '' and . != '0']"/>
  <xsl:if test="$rating or PersonalDetails/MyRatingNotes != '' or Comments != ''">
    <section>
      <h2>My notes</h2>
      <xsl:if test="$rating">
        <div class="note"><h3>My rating</h3><div class="line">
          <span class="bar" role="img" aria-label="My rating {$rating} of 10">
            <xsl:for-each select="PersonalDetails/MyRatingBar"><img src="{.}" alt=""/></xsl:for-each>
          </span>
          <span class="score"><xsl:value-of select="$rating"/></span>
        </div></div>
      </xsl:if>
      <xsl:if test="PersonalDetails/MyRatingNotes != ''">
        <div class="note"><h3>About my rating</h3><p class="text"><xsl:value-of select="PersonalDetails/MyRatingNotes"/></p></div>
      </xsl:if>
      <xsl:if test="Comments != ''"><div class="note"><h3>Comments</h3><p class="text"><xsl:value-of select="Comments"/></p></div></xsl:if>
    </section>
  </xsl:if>
</xsl:template>

<!-- The title, without the year at its end, which stands below it. -->
<xsl:template name="title">
  <xsl:variable name="mark" select="concat('(', Year, ')')"/>
  <xsl:variable name="length" select="string-length(Title)"/>
  <xsl:variable name="start" select="$length - string-length($mark)"/>
  <h1>
    <xsl:if test="$length &gt; 240"><xsl:attribute name="class">endless</xsl:attribute><xsl:attribute name="tabindex">0</xsl:attribute></xsl:if>
    <xsl:if test="$length &gt; 60 and $length &lt;= 240"><xsl:attribute name="class">long</xsl:attribute></xsl:if>
    <xsl:choose>
      <xsl:when test="normalize-space(Title) = ''">Untitled</xsl:when>
      <xsl:when test="$start &gt; 0 and substring(Title, $start + 1) = $mark"><xsl:value-of select="substring(Title, 1, $start)"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="Title"/></xsl:otherwise>
    </xsl:choose>
  </h1>
</xsl:template>

<!-- The first names in one line. -->
<xsl:template name="names">
  <xsl:param name="people"/>
  <xsl:param name="most"/>
  <xsl:if test="$people/Name != ''">
    <span class="muted">by <xsl:for-each select="$people[Name != ''][position() &lt;= $most]">
      <xsl:if test="position() &gt; 1">, </xsl:if><xsl:value-of select="Name"/></xsl:for-each>
      <xsl:if test="count($people[Name != '']) &gt; $most"> and others</xsl:if></span>
  </xsl:if>
</xsl:template>

<xsl:template match="*" mode="fact">
  <xsl:param name="label" select="name()"/>
  <xsl:if test="normalize-space() != '' and . != 'N/A'">
    <div class="fact"><dt><xsl:value-of select="$label"/></dt><dd class="text"><xsl:value-of select="."/></dd></div>
  </xsl:if>
</xsl:template>

<!-- Only web addresses become links; anything else is shown as the text that it is. -->
<xsl:template match="*" mode="link">
  <xsl:param name="label"/>
  <xsl:variable name="address">
    <xsl:if test="starts-with(translate(., 'W', 'w'), 'www.')">https://</xsl:if>
    <xsl:value-of select="normalize-space()"/>
  </xsl:variable>
  <xsl:variable name="start" select="translate(substring($address, 1, 8), 'HTPS', 'htps')"/>
  <xsl:choose>
    <xsl:when test="$address = '' or $address = 'N/A'"/>
    <xsl:when test="starts-with($start, 'http://') or $start = 'https://'">
      <a href="{$address}">
        <xsl:choose>
          <xsl:when test="$label != ''"><xsl:value-of select="$label"/></xsl:when>
          <xsl:otherwise>
            <xsl:value-of select="substring(substring-after($address, '://'), 1, 48)"/>
            <xsl:if test="string-length(substring-after($address, '://')) &gt; 48">…</xsl:if>
          </xsl:otherwise>
        </xsl:choose>
      </a>
    </xsl:when>
    <xsl:otherwise><span><xsl:if test="$label != ''"><xsl:value-of select="$label"/>: </xsl:if><xsl:value-of select="."/></span></xsl:otherwise>
  </xsl:choose>
</xsl:template>

<xsl:template name="crew">
  <xsl:param name="title"/>
  <xsl:param name="people"/>
  <xsl:if test="$people">
    <div><h3><xsl:value-of select="$title"/></h3>
      <xsl:call-template name="people"><xsl:with-param name="people" select="$people"/></xsl:call-template></div>
  </xsl:if>
</xsl:template>

<xsl:template name="people">
  <xsl:param name="people"/>
  <xsl:param name="class"/>
  <xsl:variable name="count" select="count($people)"/>
  <xsl:if test="$count &gt; 12">
    <button class="more" id="javascript:{generate-id($people[1])}" aria-expanded="false" data-all="Show all {$count}">Show all <xsl:value-of select="$count"/></button>
  </xsl:if>
  <ul class="{$class}">
    <xsl:for-each select="$people">
      <li>
        <xsl:if test="position() &gt; 12"><xsl:attribute name="class">further</xsl:attribute><xsl:attribute name="hidden">hidden</xsl:attribute></xsl:if>
        <xsl:choose>
          <xsl:when test="Character">
            <span><xsl:value-of select="Name"/></span>
            <span class="muted"><xsl:if test="Character != 'N/A'"><xsl:value-of select="Character"/></xsl:if></span>
          </xsl:when>
          <xsl:otherwise>
            <xsl:value-of select="Name"/><xsl:if test="Extended != '' and Extended != 'N/A'"><span class="muted"><xsl:text> </xsl:text><xsl:value-of select="Extended"/></span></xsl:if>
          </xsl:otherwise>
        </xsl:choose>
      </li>
    </xsl:for-each>
  </ul>
</xsl:template>

</xsl:stylesheet>
